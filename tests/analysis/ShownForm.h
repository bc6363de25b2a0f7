#pragma once

#include "analysis/ui/AnalysisWindows.h"
#include "support/Controls.h"
#include "support/TestProgram.h"

#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

/// The form of a tool on the screen, with what it starts kept in a list instead of started.
struct ShownForm
{
    explicit ShownForm(const ardiphon::AnalysisTool &tool)
    {
        program.config.FileCSound = QStringLiteral("/my apps/csound");
        form = ardiphon::newToolForm(tool, context, nullptr);
        form->show();
        if (!QTest::qWaitForWindowActive(form.get()))
            qFatal("the form does not show");
    }

    template <typename Control>
    Control *control(const QString &name) const
    {
        return controlIn<Control>(*form, name);
    }
    QLineEdit *field(int index) const
    {
        return control<QLineEdit>(QStringLiteral("TextFlags(%1)").arg(index));
    }
    /// The texts of the first \a count fields.
    QStringList fieldTexts(int count) const
    {
        QStringList texts;
        for (int i = 0; i < count; ++i)
            texts.append(field(i)->text());
        return texts;
    }
    QLineEdit *text(const char *name) const { return control<QLineEdit>(QLatin1String(name)); }
    QString label(const char *name) const { return control<QLabel>(QLatin1String(name))->text(); }
    QAbstractButton *button(const char *name) const
    {
        return control<QAbstractButton>(QLatin1String(name));
    }
    void click(const char *name) const { QTest::mouseClick(button(name), Qt::LeftButton); }
    /// A check box or radio button, at its mark.
    void tick(const char *name) const
    {
        QAbstractButton *const box = button(name);
        QTest::mouseClick(box, Qt::LeftButton, {}, {8, box->height() / 2});
    }
    void help(int index) const { click(qPrintable(QStringLiteral("ImageHelp(%1)").arg(index))); }
    QGroupBox *frame() const { return control<QGroupBox>(QStringLiteral("Frame1")); }

    /// Writes over the whole field with real keys.
    void type(QLineEdit *into, const QString &keys) const
    {
        QTest::mouseClick(into, Qt::LeftButton);
        QTest::keyClick(into, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(into, Qt::Key_Delete);
        QTest::keyClicks(into, keys);
    }
    void type(int index, const QString &keys) const { type(field(index), keys); }
    void browse(const std::optional<QString> &path, const char *name = "Command1")
    {
        program.dialogs.expectOpen(QStringLiteral("Input File Name"), path);
        click(name);
    }
    /// The parameters of the start that a press on the button gives; "" when there is none.
    QString analyze()
    {
        starts.clear();
        click("CommandAnalyze");
        return starts.isEmpty() ? QString() : starts.constLast().value(1);
    }

    TestProgram program;
    QList<QStringList> starts; ///< file, parameters, directory
    /// Gets what is started too, where a test has set it.
    std::function<void(const QString &, const QString &, const QString &)> passOn;
    ardiphon::ToolContext context{
        program.config, program.dialogs,
        [this](const QString &file, const QString &parameters, const QString &directory) {
            starts.append({file, parameters, directory});
            if (passOn)
                passOn(file, parameters, directory);
        }};
    std::unique_ptr<QDialog> form;
};
