#pragma once

#include "workbench/ui/EditorView.h"

#include <QHash>
#include <QObject>

#include <functional>

namespace ardiphon {

struct EditorKey;

/// The keys that views take for their window: each has a meaning, and a meaning has one handler.
class ViewKeys : public QObject
{
    Q_OBJECT

public:
    /// What a key means in a view of that position, as csdViewKey() and projectViewKey() tell.
    using Rule = ViewKey (*)(int keyCode, int shift, ViewPosition position);
    using Handler = std::function<void(const EditorView &)>;

    ViewKeys(Rule rule, QObject *parent) : QObject(parent), m_rule(rule) {}

    /// From now on the keys of \a view are looked at.
    void follow(const EditorView &view);
    /// Has \a handler do what a key of that meaning asks for, in the place of an earlier one. It is
    /// given the view in which the key went down.
    void bind(ViewKey meaning, Handler handler);

    /// What a key means in a view of that position.
    ViewKey meaning(int keyCode, int shift, ViewPosition position) const
    {
        return m_rule(keyCode, shift, position);
    }
    bool isBound(ViewKey meaning) const { return m_handlers.contains(meaning); }

private:
    void handle(const EditorView &view, EditorKey &key) const;

    const Rule m_rule;
    QHash<ViewKey, Handler> m_handlers;
};

} // namespace ardiphon
