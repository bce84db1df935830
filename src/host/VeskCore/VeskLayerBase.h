#pragma once

#include "veskcore_export.h"

#include <QImage>
#include <QObject>
#include <QString>

/// One layer of a document, of whatever kind: a named picture with an opacity. Owned by the layer
/// manager it is added to. GUI thread.
///
/// A tool calls setAlpha.
class VESKCORE_EXPORT VeskLayerBase : public QObject
{
    Q_OBJECT

public:
    explicit VeskLayerBase(const QString &name);
    ~VeskLayerBase() override;

    QString getName() const { return name; }
    void setName(const QString &name);

    /// Opacity, 0 (invisible) to 1 (opaque, the default). Values outside are moved to the nearest
    /// bound, a value that is not a number counts as 1.
    float getAlpha() const { return alpha; }
    void setAlpha(float alpha);

    /// Whether the layer takes part in what the document shows; true by default.
    bool isVisible() const { return visible; }
    void setVisible(bool visible);

    /// What the layer shows, its top left corner at that of the document; null for nothing. Shares
    /// its pixels with the layer: free to call for every repaint.
    virtual QImage picture() const = 0;

Q_SIGNALS:
    /// Anything of the layer has changed, pixels included.
    void changed();

private:
    QString name;
    float alpha = 1.0F;
    bool visible = true;
};
