#pragma once

#include "documents/ui/FormCSD.h"
#include "language/editor/LEditOCX.h"
#include "support/Controls.h"
#include "support/Require.h"
#include "support/TestProgram.h"

#include <QAction>
#include <QPointer>
#include <QTest>

#include <memory>

/// The CSD window over a program of the test's own, for test classes to derive from.
class CsdFixture
{
protected:
    void start() { m_program = std::make_unique<TestProgram>(); }

    /// "" where each dialog was asked as the test said; else what went wrong.
    [[nodiscard]] QString finish()
    {
        delete m_window;
        return std::exchange(m_program, nullptr)->dialogs.verify();
    }

    /// Opens the window on piece.csd with that text.
    void show(const QByteArray &text = {})
    {
        m_program->config.CSDFileName = m_program->write(QStringLiteral("piece.csd"), text);
        m_window = new ardiphon::FormCSD(m_program->context);
        m_window->show();
        require(QTest::qWaitForWindowExposed(m_window), "the window does not show");
        first()->setFocus();
    }

    template <typename Control>
    Control *control(const char *name) const
    {
        return controlIn<Control>(*m_window, QLatin1String(name));
    }
    QAction *action(const char *name) const { return control<QAction>(name); }
    void trigger(const char *name) { action(name)->trigger(); }
    ardiphon::LEditOCX *first() const { return control<ardiphon::LEditOCX>("LEDIT1"); }
    ardiphon::LEditOCX *second() const { return control<ardiphon::LEditOCX>("LEDIT2"); }

    /// Without an end it is the caret that goes there.
    static void caret(ardiphon::LEditOCX *editor, int line, int column, int endLine = 0,
                      int endColumn = 0)
    {
        editor->SelStartLine = line;
        editor->SelStartColumn = column;
        editor->SelEndLine = endLine ? endLine : line;
        editor->SelEndColumn = endLine ? endColumn : column;
        editor->SetSelection();
    }

    std::unique_ptr<TestProgram> m_program;
    QPointer<ardiphon::FormCSD> m_window;
};
