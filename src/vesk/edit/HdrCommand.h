#pragma once

#include <QObject>

#include <memory>

class EditorUiManager;
class VeskContext;
class VeskToolHDR;

/// The menu command "Merge to HDR": owns the tool and activates it, and sees to it that a merged
/// document keeps the camera's metadata of the first picture of its bracket. GUI thread.
class HdrCommand : public QObject
{
    Q_OBJECT

public:
    /// Also installs the tool's translation. uiManager is borrowed.
    explicit HdrCommand(EditorUiManager *uiManager, QObject *parent = nullptr);
    ~HdrCommand() override;

    /// Shows the tool's panel for the current document, with the files that are selected. When they
    /// are more than the tool takes, the user is told first, and may think again.
    void activate();
    VeskToolHDR &tool() { return *hdr; }

private:
    bool isSelectionAgreed() const;
    void nameMetadataSource(VeskContext *document);

    EditorUiManager *uiManager;
    std::unique_ptr<VeskToolHDR> hdr;
};
