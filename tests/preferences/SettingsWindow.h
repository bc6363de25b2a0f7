#pragma once

#include "app/modRegistry.h"
#include "language/editor/LEditOCX.h"
#include "preferences/SettingsValues.h"
#include "preferences/ui/FormImpostazioni.h"
#include "support/Controls.h"
#include "support/Require.h"
#include "support/TestProgram.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTest>

#include <memory>

/// The settings over two editors that play those of the open editor window, in a program of
/// the test's own.
class SettingsWindow
{
protected:
    void begin();
    /// "" where each dialog was asked as the test said; else what went wrong.
    [[nodiscard]] QString end();

    void open(const QString &caller = ardiphon::CsdSettings);
    template <typename Control>
    Control *control(const char *name) const
    {
        return controlIn<Control>(*m_window, QLatin1String(name));
    }
    /// Shows the sheet and clicks on the control as a user would.
    void click(const char *name);
    void turnTo(const char *sheetButton);
    void type(const char *name, const QString &text);
    void pick(const char *patch, ardiphon::Color first, std::optional<ardiphon::Color> chosen);
    void expectError(const QString &text);
    void save() { click("Command1"); }
    QString stored(const QString &key, const char *name);
    /// What the view shows on the screen, as the program left it there: a picture that the
    /// widget draws for the test would be the newest one in any case.
    static QImage onScreen(const ardiphon::LEditOCX &editor);
    /// Whether the colour is anywhere in the view on the screen.
    static bool shows(ardiphon::LEditOCX &editor, ardiphon::Color color);

    std::unique_ptr<TestProgram> m_program;
    std::unique_ptr<QWidget> m_host;
    ardiphon::LEditOCX *LEDIT1 = nullptr;
    ardiphon::LEditOCX *LEDIT2 = nullptr;
    std::unique_ptr<ardiphon::FormImpostazioni> m_window;
};

inline void SettingsWindow::begin()
{
    m_program = std::make_unique<TestProgram>();
    m_host = std::make_unique<QWidget>();
    m_host->resize(600, 300);
    const auto editor = [this](int left) {
        auto *made = new ardiphon::LEditOCX(m_host.get());
        made->setGeometry(left, 0, 300, 300);
        made->SetGetTokenColors([this](ardiphon::TokenKind kind, const QString &text) {
            return ardiphon::GetTokenColors(m_program->config, ardiphon::DocumentRole::Csd, kind,
                                            text);
        });
        made->SetText("plain oscili <CsScore> \"file\" $macro instr\n; comment\nplain");
        return made;
    };
    LEDIT1 = editor(0);
    LEDIT2 = editor(300);
    m_host->show();
    require(QTest::qWaitForWindowExposed(m_host.get()), "the window does not show");
}

inline QString SettingsWindow::end()
{
    m_window.reset();
    m_host.reset();
    return std::exchange(m_program, nullptr)->dialogs.verify();
}

inline void SettingsWindow::open(const QString &caller)
{
    m_window = std::make_unique<ardiphon::FormImpostazioni>(
        m_program->context, ardiphon::EditorViews{*LEDIT1, *LEDIT2}, caller, m_host.get());
    m_window->show();
    require(QTest::qWaitForWindowActive(m_window.get()), "the window does not come to the front");
}

inline void SettingsWindow::turnTo(const char *sheetButton)
{
    if (control<QPushButton>(sheetButton)->isEnabled())
        QTest::mouseClick(control<QPushButton>(sheetButton), Qt::LeftButton);
}

inline void SettingsWindow::click(const char *name)
{
    auto *button = control<QAbstractButton>(name);
    static const std::pair<const char *, const char *> sheets[] = {
        {"FrameGeneral", "mostraGeneral"},         {"FrameText", "mostraText"},
        {"FrameColors", "mostraColors"},           {"FrameDirectory", "mostraDirectory"},
        {"FrameAssociation", "mostraAssociation"}, {"FrameStudio", "mostraStudio"},
    };
    for (const auto &[frame, sheetButton] : sheets)
        if (control<QWidget>(frame)->isAncestorOf(button))
            turnTo(sheetButton);
    require(button->isVisible(), name);
    QPoint at = button->rect().center();
    if (qobject_cast<QCheckBox *>(button) || qobject_cast<QRadioButton *>(button))
        at.setX(8); // on the mark
    QTest::mouseClick(button, Qt::LeftButton, Qt::NoModifier, at);
}

inline void SettingsWindow::type(const char *name, const QString &text)
{
    turnTo("mostraText");
    auto *edit = control<QLineEdit>(name);
    edit->setFocus();
    edit->selectAll();
    QTest::keyClick(edit, Qt::Key_Delete);
    for (const QChar character : text)
        QTest::sendKeyEvent(QTest::Click, edit, Qt::Key_unknown, character, Qt::NoModifier);
    require(edit->text() == text, "the field does not take the text");
}

inline void SettingsWindow::pick(const char *patch, ardiphon::Color first,
                                 std::optional<ardiphon::Color> chosen)
{
    m_program->dialogs.expectColor(first, chosen);
    click(patch);
}

inline void SettingsWindow::expectError(const QString &text)
{
    m_program->dialogs.expect(
        {text, "ERROR", ardiphon::MessageIcon::Exclamation, ardiphon::MessageButtons::Ok});
}

inline QString SettingsWindow::stored(const QString &key, const char *name)
{
    ardiphon::SettingsStore fresh(m_program->path("settings.ini"));
    return ardiphon::ReadRegistryString(fresh, key, QLatin1String(name), "(none)");
}

inline QImage SettingsWindow::onScreen(const ardiphon::LEditOCX &editor)
{
    QApplication::processEvents();
    const QRect view = editor.geometry();
    return editor.screen()
        ->grabWindow(editor.window()->winId(), view.x(), view.y(), view.width(), view.height())
        .toImage();
}

inline bool SettingsWindow::shows(ardiphon::LEditOCX &editor, ardiphon::Color color)
{
    const QImage image = onScreen(editor);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == QColor(color.red(), color.green(), color.blue()))
                return true;
    return false;
}
