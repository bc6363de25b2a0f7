#pragma once

#include "workbench/ui/EditorView.h"

#include <QHash>
#include <QObject>

#include <functional>

namespace ardiphon {

struct EditorKey;

/// The keys that views pass to their window: each has a meaning, and a meaning has one handler.
class ViewKeys : public QObject
{
    Q_OBJECT

public:
    /// Returns what a key means in a view of that position, like csdViewKey() and projectViewKey().
    using Rule = ViewKey (*)(int keyCode, int shift, ViewPosition position);
    using Handler = std::function<void(const EditorView &)>;

    ViewKeys(Rule rule, QObject *parent) : QObject(parent), m_rule(rule) {}

    /// From now on handles the keys of \a view.
    void follow(const EditorView &view);
    /// Has \a handler called for keys of that meaning, instead of an earlier handler, with the view
    /// in which the key was pressed.
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
