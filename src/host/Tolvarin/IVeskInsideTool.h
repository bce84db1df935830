#pragma once

#include "IVeskTool.h"

class IVeskUIManager;

/// Base of the tools that live inside the editor's process and may use its windows. GUI thread.
///
/// A tool calls the constructor and the destructor, as its base.
class TOLVARIN_EXPORT IVeskInsideTool : public IVeskTool
{
    Q_OBJECT

public:
    /// parent, if any, owns the tool.
    explicit IVeskInsideTool(QObject *parent = nullptr);
    ~IVeskInsideTool() override;

    /// Does nothing: the editor activates these tools through the operation below. A tool that
    /// overrides only one of the two brings the other in with `using IVeskInsideTool::active;`.
    void active(VeskContext *context) override;
    /// The user picked the tool for context (borrowed, may be null). uiManager is borrowed and
    /// outlives the tool.
    virtual void active(VeskContext *context, IVeskUIManager *uiManager) = 0;
};
