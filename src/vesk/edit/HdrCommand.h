#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>

#include <memory>

class IVeskUIManager;
class QWidget;
class VeskContext;
class VeskToolHDR;

/// The menu command "Merge to HDR": owns the tool and activates it, and sees to it that a merged
/// document keeps the camera's metadata of the first picture of its bracket. GUI thread.
class HdrCommand : public QObject
{
    Q_OBJECT

public:
    /// Also installs the tool's translation. uiManager is borrowed.
    explicit HdrCommand(IVeskUIManager *uiManager, QObject *parent = nullptr);
    ~HdrCommand() override;

    /// Shows the tool's panel for the current document, with the files that are selected.
    void activate();
    VeskToolHDR &tool() { return *hdr; }

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void nameMetadataSource(VeskContext *document);

    IVeskUIManager *uiManager;
    std::unique_ptr<VeskToolHDR> hdr;
    QPointer<QWidget> frame; // the tool's, top-level
    QStringList sources;     // of the merge under way, in path order
};
