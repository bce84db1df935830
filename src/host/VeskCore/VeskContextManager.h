#pragma once

#include "veskcore_export.h"

#include <QList>
#include <QObject>

class VeskContext;

/// The open documents, in the order of opening, and which of them is current. Owns its contexts.
/// GUI thread.
///
/// A tool calls getInstance, getCurrentContext, addContext, indexOfContext, setCurrentContext and
/// removeContext.
class VESKCORE_EXPORT VeskContextManager : public QObject
{
    Q_OBJECT

public:
    /// The one manager, created on first call and kept for the life of the process.
    static VeskContextManager *getInstance();

    /// Appends context and takes ownership of it. Does not make it current. Null, or a context
    /// that is already here, is ignored.
    void addContext(VeskContext *context);
    /// Takes context off the list and hands its ownership back to the caller, who deletes it. If
    /// it was current, its right neighbour becomes current, or else its left one. A context that
    /// is not here is ignored.
    void removeContext(VeskContext *context);

    int count() const { return contexts.size(); }
    /// Borrowed; null for an index outside of the list.
    VeskContext *contextAt(int index) const { return contexts.value(index); }
    /// -1 when context is not here.
    int indexOfContext(VeskContext *context) const;

    /// Null while no document is current.
    VeskContext *getCurrentContext() const;
    /// Makes that document current; -1 for none. Any other index outside of the list is ignored.
    void setCurrentContext(int index);

Q_SIGNALS:
    void contextAdded(VeskContext *context);
    /// Sent after context has left the list, while it still exists. Not sent for a context that
    /// somebody else deleted while it was in the list: that one leaves without a signal but
    /// currentContextChanged.
    void contextRemoved(VeskContext *context);
    /// context is null when no document is current any more.
    void currentContextChanged(VeskContext *context);

private:
    VeskContextManager() = default;

    void takeOut(QObject *context);
    void makeCurrent(VeskContext *context);

    QList<VeskContext *> contexts;
    VeskContext *current = nullptr;
};
