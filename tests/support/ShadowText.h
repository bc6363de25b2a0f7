#pragma once

#include "language/editor/LEditOCX.h"

#include <QStringList>

/// A copy of an editor's lines that reads only the lines that the editor reports as changed.
class ShadowText : public QObject
{
public:
    explicit ShadowText(ardiphon::LEditOCX &editor)
        : m_editor(editor), m_revision(editor.TextRevision())
    {
        for (int line = 1; line <= editor.LineCount(); ++line)
            m_lines.append(editor.LineText(line));
        connect(&editor, &ardiphon::LEditOCX::textChanged, this, &ShadowText::follow);
        connect(&editor, &ardiphon::LEditOCX::modifiedChanged, this, [this](bool modified) {
            if (modified == m_modified)
                m_faults += QStringLiteral("modified %1 again; ").arg(int(modified));
            m_modified = modified;
        });
        m_modified = editor.GetState(ardiphon::TextState);
    }

    const QStringList &lines() const { return m_lines; }
    const QList<ardiphon::TextChange> &changes() const { return m_changes; }
    void forgetChanges() { m_changes.clear(); }

    /// What is not as it was reported, "" when all is.
    QString faults() const
    {
        QString all = m_faults;
        if (m_lines.size() != m_editor.LineCount())
            all +=
                QStringLiteral("%1 lines, not %2; ").arg(m_lines.size()).arg(m_editor.LineCount());
        for (int line = 1; line <= m_lines.size() && all.isEmpty(); ++line)
            if (m_lines[line - 1] != m_editor.LineText(line))
                all += QStringLiteral("line %1 differs; ").arg(line);
        if (m_revision != m_editor.TextRevision())
            all += QStringLiteral("a change was not told; ");
        if (m_modified != m_editor.GetState(ardiphon::TextState))
            all += QStringLiteral("the modified state was not told; ");
        return all;
    }

private:
    void follow(const ardiphon::TextChange &change, quint64 revision)
    {
        m_changes.append(change);
        if (revision != m_revision + 1 || revision != m_editor.TextRevision())
            m_faults += QStringLiteral("revision %1 behind %2; ").arg(revision).arg(m_revision);
        m_revision = revision;
        const int first = change.line - 1;
        if (first < 0 || change.linesRemoved < 0 || change.linesAdded < 0 ||
            first + change.linesRemoved > m_lines.size()) {
            m_faults += QStringLiteral("a change outside the text; ");
            return;
        }
        m_lines.remove(first, change.linesRemoved);
        for (int i = 0; i < change.linesAdded; ++i)
            m_lines.insert(first + i, m_editor.LineText(change.line + i));
    }

    ardiphon::LEditOCX &m_editor;
    QStringList m_lines;
    QList<ardiphon::TextChange> m_changes;
    quint64 m_revision;
    bool m_modified = false;
    QString m_faults;
};
