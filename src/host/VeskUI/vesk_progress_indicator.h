#pragma once

#include "veskui_export.h"

#include <QDialog>
#include <QSize>

/// A modal busy spinner without frame. GUI thread, except for posting a close event to it.
///
/// exec() returns when the indicator receives a close event, also one that another thread posted
/// before the loop began. The user cannot close it: Escape and the window system have no effect.
class VESKUI_EXPORT VeskProgressIndicator : public QDialog
{
    Q_OBJECT

public:
    /// Size in device-independent pixels. parent, if any, owns it.
    VeskProgressIndicator(const QSize &size, QWidget *parent = nullptr);
    ~VeskProgressIndicator() override;

    /// The spinner turns from startAnimation to stopAnimation.
    void startAnimation();
    void stopAnimation();
    bool isAnimating() const;
};
