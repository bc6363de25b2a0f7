#pragma once

#include "documents/CsdFixture.h"
#include "start/ui/FormNew.h"
#include "support/Require.h"

#include <QApplication>
#include <QTimer>

inline const QString SaveQuestion = QStringLiteral("File has changed!\r\nDo you want to save it?");
inline const QString LeaveQuestion =
    QStringLiteral("File CSD has changed!\r\nDo you want to save it?");
inline const QString TitleEnd = QStringLiteral(" - ArdiphonPro - Version " ARDIPHON_VERSION);
inline const QString ProgramFirst = QStringLiteral("ArdiphonPro - ");

/// What a save over a file says that could not be read.
inline QString unreadText(const QString &path)
{
    return QStringLiteral("The file \"%1\" was not saved: it could not be read, and what it holds "
                          "would be lost.")
        .arg(path);
}

/// For tests of the document in the CSD window, which may hand over to a project's.
class CsdDocumentFixture : protected CsdFixture
{
protected:
    void start()
    {
        CsdFixture::start();
        m_projectWindows = 0;
        m_program->context.windows.showFormORCSCO = [this] { ++m_projectWindows; };
    }

    /// Opens the window on that file, or on none.
    void open(const QString &file = {})
    {
        m_program->config.CSDFileName = file;
        m_window = new ardiphon::FormCSD(m_program->context);
        m_window->show();
        m_editor = first();
        require(QTest::qWaitForWindowExposed(m_window), "the window does not show");
    }

    void type(const QString &text) const { QTest::keyClicks(m_editor->focusProxy(), text); }

    /// Expects the save question under that title.
    void expectQuestion(const QString &title, ardiphon::Answer answer,
                        const QString &text = SaveQuestion)
    {
        m_program->dialogs.expect({text, title, ardiphon::MessageIcon::Exclamation,
                                   ardiphon::MessageButtons::YesNoCancel},
                                  answer);
    }

    void chooseInFormNew(Qt::Key key) const
    {
        QTimer::singleShot(0, m_window, [key] {
            auto *chooser = qobject_cast<ardiphon::FormNew *>(QApplication::activeModalWidget());
            if (!chooser)
                qFatal("FormNew does not show");
            QTest::keyClick(chooser, key);
        });
    }

    ardiphon::LEditOCX *m_editor = nullptr;
    int m_projectWindows = 0;
};
