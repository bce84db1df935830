#pragma once

#include "tolvarin_export.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

class QWidget;
class VeskContext;

/// What the editor knows of a tool: who it is, and the operations through which the editor drives
/// it. GUI thread only. No operation may throw.
///
/// A tool calls nothing of this but what it inherits: it assigns the protected texts, the context
/// and the active flag, and overrides what it wants to.
///
/// The order of the virtual operations is part of the binary interface: never reorder them, add
/// new ones at the end.
class TOLVARIN_EXPORT IVeskTool : public QObject
{
    Q_OBJECT

public:
    /// parent, if any, owns the tool.
    explicit IVeskTool(QObject *parent = nullptr);
    ~IVeskTool() override;

    /// Swallows every event: returns true and handles nothing. A tool is not a receiver of events;
    /// the editor speaks to it through processEvent.
    bool event(QEvent *event) override;

    /// The user picked the tool for context (borrowed, may be null).
    virtual void active(VeskContext *context) = 0;
    /// The editor takes the tool off its document.
    virtual void disActive() = 0;
    /// Called once, after construction and before the first activation.
    virtual void init() = 0;
    /// Called once, before the editor destroys the tool.
    virtual void release() = 0;
    /// Widget that the editor shows beside the document, owned by the tool; null for none.
    virtual QWidget *getWidget();
    /// Takes back, or does again, the tool's last step on the document.
    virtual void toolUndo();
    virtual void toolRedo();
    /// The editor has undone a step that was not the tool's.
    virtual void afterUndo();
    /// The active flag, false until a tool sets it.
    virtual bool isActive();
    /// Whether the tool asked for the named event with registerEvent. The editor calls
    /// processEvent only for those.
    virtual bool eventRegistered(QString name);
    /// A named event of the editor that the tool registered for.
    virtual void processEvent(QString name);

    /// Short name, unique among tools of one kind.
    QString name() const { return toolName; }
    /// How the tool is delivered, e.g. "inside" for one that the editor links.
    QString kind() const { return toolKind; }
    /// UUID without braces, the same in every version.
    QString identifier() const { return toolIdentifier; }
    /// Name for menus, shown to the user.
    QString title() const { return toolTitle; }
    QString version() const { return toolVersion; }

protected:
    /// Makes eventRegistered answer true for that name from now on.
    void registerEvent(const QString &name);

    QString toolName;
    QString toolKind;
    QString toolIdentifier;
    QString toolTitle;
    QString toolVersion;
    /// Document that the tool works on. Borrowed; null once the editor has deleted it.
    QPointer<VeskContext> context;
    bool activeFlag = false;

private:
    QStringList registeredEvents;
};
