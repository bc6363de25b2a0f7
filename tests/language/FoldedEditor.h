#pragma once

#include "language/editor/LEditOCX.h"

#include <QTest>

#include <memory>

/// An editor of twenty rows with a hundred lines "L1 a", "L2 a", ... for test classes to derive
/// from.
class FoldedEditor : public QObject
{
protected:
    /// To be called before each test.
    void makeEditor()
    {
        m_editor = std::make_unique<ardiphon::LEditOCX>();
        m_editor->resize(400, 20 * m_editor->LineHeight());
        m_editor->SetText(hundredLines());
        m_editor->ClearState(ardiphon::TextState);
        m_editor->ResetUndo();
        m_editor->show();
        QVERIFY(QTest::qWaitForWindowExposed(m_editor.get()));
    }

    static QString hundredLines()
    {
        QStringList lines;
        for (int line = 1; line <= 100; ++line)
            lines.append(QStringLiteral("L%1 a").arg(line));
        return lines.join(QStringLiteral("\r\n"));
    }

    /// What is hidden, "3-5 9-12".
    QString folds() const
    {
        QStringList all;
        for (int line = 1; line <= m_editor->LineCount(); ++line) {
            const ardiphon::LineRun run = m_editor->HiddenUnder(line);
            if (!run.isEmpty())
                all.append(QStringLiteral("%1-%2").arg(run.first).arg(run.last));
        }
        return all.join(u' ');
    }

    /// Whether a line is on the screen as a whole.
    bool isSeen(int line) const
    {
        const int y = m_editor->PositionToPixels(line, 0).y();
        return !m_editor->IsHidden(line) && y >= 0 &&
               y + m_editor->LineHeight() <= m_editor->height();
    }

    std::unique_ptr<ardiphon::LEditOCX> m_editor;
};
