#include "documents/CsdFixture.h"
#include "documents/ProjectWindow.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QTreeView>

using namespace ardiphon;

/// "Rename": its dialog, by keys and clicks, and what it changes.
class tst_RenameFeature : public QObject, private CsdFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    void menu_hasTheCommand();
    void dialog_showsEveryPlaceBeforeItChanges();
    void enter_renamesAsOneStep();
    void button_renames();
    void escape_andCancel_changeNothing();
    void refusal_isShownAsOneTypes();
    void numberToName_putsQuotesInTheScore();
    void obstacle_isSaidOnce();
    void obstacle_thatTakesReading_isShown();
    void hiddenNotes_areTold();
    void caretAndView_stay();
    void folds_stay();
    void split_getsTheSame();
    void otherChange_findsThePlacesAgain();
    void project_changesBothTexts();

private:
    /// Opens the dialog by its key and has \a steps done in it when the places are found; they have
    /// to close it.
    void inDialog(LEditOCX *editor, const std::function<void(QDialog &)> &steps)
    {
        editor->window()->activateWindow(); // where no window manager does
        require(QTest::qWaitFor([&] { return editor->window()->isActiveWindow(); }),
                "the window is not active");
        bool wasOpen = false;
        QTimer::singleShot(0, editor, [&] {
            auto *const dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            require(dialog != nullptr, "the dialog does not show");
            require(QTest::qWaitFor([&] { return isReady(*dialog); }), "it does not end reading");
            wasOpen = true;
            steps(*dialog);
            if (dialog->isVisible())
                dialog->reject(); // the test fails, but ends
        });
        QTest::keyClick(editor->focusProxy(), Qt::Key_R, Keys);
        QVERIFY(wasOpen);
    }
    void inDialog(const std::function<void(QDialog &)> &steps) { inDialog(first(), steps); }

    static bool isReady(const QDialog &dialog)
    {
        return !label(dialog, "LabelRenamePlaces").startsWith(QLatin1String("Reading"));
    }
    static QString label(const QDialog &dialog, const char *name)
    {
        return controlIn<QLabel>(dialog, QLatin1String(name))->text();
    }
    static QLineEdit *field(const QDialog &dialog)
    {
        return controlIn<QLineEdit>(dialog, QStringLiteral("LineRenameName"));
    }
    static QPushButton *button(const QDialog &dialog)
    {
        return controlIn<QPushButton>(dialog, QStringLiteral("buttonRename"));
    }
    /// "document line text", with the name in brackets.
    static QStringList rows(const QDialog &dialog)
    {
        const auto *const tree = controlIn<QTreeView>(dialog, QStringLiteral("TreeRenamePlaces"));
        QStringList all;
        for (int row = 0; row < tree->model()->rowCount(); ++row) {
            const QModelIndex text = tree->model()->index(row, 2);
            QString line = text.data().toString();
            const int start = text.data(Qt::UserRole).toInt();
            line.insert(start + text.data(Qt::UserRole + 1).toInt(), u']');
            line.insert(start, u'[');
            all.append(QStringLiteral("%1 %2 %3")
                           .arg(tree->model()->index(row, 0).data().toString(),
                                tree->model()->index(row, 1).data().toString(), line));
        }
        return all;
    }
    static void type(const QDialog &dialog, const char *name)
    {
        QTest::keyClick(field(dialog), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(field(dialog), QString::fromUtf8(name));
    }

    static constexpr auto Keys = Qt::ControlModifier | Qt::ShiftModifier;
};

namespace {

const QByteArray RenamedText = "<CsInstruments>\r\n"
                               "gkLevel init 0\r\n"
                               "instr 1, Bell\r\n"
                               "\tkamp = gkLevel * p4 ; kamp\r\n"
                               "print kamp\r\n"
                               "schedule 1, 0, 1\r\n"
                               "endin\r\n"
                               "</CsInstruments>\r\n"
                               "<CsScore>\r\n"
                               "i 1 0 1\r\n"
                               "i1 1 1\r\n"
                               "</CsScore>\r\n";

QString asText(const QByteArray &bytes) { return QString::fromUtf8(bytes); }

} // namespace

void tst_RenameFeature::menu_hasTheCommand()
{
    show(RenamedText);
    QCOMPARE(action("menuStudioRename")->text(), QStringLiteral("Re&name ..."));
    QCOMPARE(action("menuStudioRename")->shortcut(), QKeySequence(Keys | Qt::Key_R));
}

void tst_RenameFeature::dialog_showsEveryPlaceBeforeItChanges()
{
    show(RenamedText);
    caret(first(), 5, 8);
    QString title, name, count, text;
    QStringList places;
    bool isSelected = false, isEnabled = true;
    inDialog([&](QDialog &dialog) {
        title = dialog.windowTitle();
        name = label(dialog, "LabelRenameName");
        count = label(dialog, "LabelRenamePlaces");
        places = rows(dialog);
        isSelected = field(dialog)->hasFocus() && field(dialog)->selectedText() == "kamp";
        isEnabled = button(dialog)->isEnabled();
        type(dialog, "kLoud");
        text = first()->Text();
        dialog.reject();
    });
    QCOMPARE(title, QStringLiteral("Rename"));
    QCOMPARE(name, QStringLiteral("kamp   variable, lines 3 to 7"));
    QCOMPARE(count, QStringLiteral("2 places will change:"));
    QCOMPARE(places,
             QStringList({"piece.csd 4 [kamp] = gkLevel * p4 ; kamp", "piece.csd 5 print [kamp]"}));
    QVERIFY(isSelected);
    QVERIFY(!isEnabled);
    QCOMPARE(text, asText(RenamedText));
}

void tst_RenameFeature::enter_renamesAsOneStep()
{
    show(RenamedText);
    caret(first(), 4, 3);
    inDialog([&](QDialog &dialog) {
        type(dialog, "kLoud");
        QTest::keyClick(field(dialog), Qt::Key_Return);
    });
    QByteArray expected = RenamedText;
    expected.replace("\tkamp =", "\tkLoud =").replace("print kamp", "print kLoud");
    QCOMPARE(first()->Text(), asText(expected));
    QVERIFY(first()->GetState(TextState));
    QTRY_COMPARE(m_window->focusWidget(), first()->focusProxy());
    first()->Undo();
    QCOMPARE(first()->Text(), asText(RenamedText));
    QVERIFY(!first()->GetState(TextState));
    first()->ClearState(TextState);
}

void tst_RenameFeature::button_renames()
{
    show(RenamedText);
    caret(first(), 2, 0);
    inDialog([&](QDialog &dialog) {
        type(dialog, "gkVolume");
        QTest::mouseClick(button(dialog), Qt::LeftButton);
    });
    QCOMPARE(first()->Text(), asText(QByteArray(RenamedText).replace("gkLevel", "gkVolume")));
    first()->ClearState(TextState);
}

void tst_RenameFeature::escape_andCancel_changeNothing()
{
    show(RenamedText);
    caret(first(), 2, 0);
    inDialog([&](QDialog &dialog) {
        type(dialog, "gkVolume");
        QTest::keyClick(field(dialog), Qt::Key_Escape);
    });
    inDialog([&](QDialog &dialog) {
        type(dialog, "gkVolume");
        QTest::mouseClick(controlIn<QPushButton>(dialog, QStringLiteral("buttonRenameCancel")),
                          Qt::LeftButton);
    });
    QCOMPARE(first()->Text(), asText(RenamedText));
    QVERIFY(!first()->GetState(TextState));
}

void tst_RenameFeature::refusal_isShownAsOneTypes()
{
    show(RenamedText);
    caret(first(), 4, 3);
    QStringList reasons;
    QList<bool> enabled;
    bool staysOpen = false;
    inDialog([&](QDialog &dialog) {
        for (const char *const name : {"kamp", "", "x", "oscili", "p4", "kx y", "kx"}) {
            field(dialog)->clear();
            QTest::keyClicks(field(dialog), QLatin1String(name));
            reasons.append(label(dialog, "LabelRenameReason"));
            enabled.append(button(dialog)->isEnabled());
        }
        type(dialog, "gkLevel");
        QTest::keyClick(field(dialog), Qt::Key_Return);
        staysOpen = dialog.isVisible();
        dialog.reject();
    });
    QCOMPARE(
        reasons,
        QStringList({"That is its name now.", "Type the new name.",
                     "The name has to begin with \"k\": another letter is another type.",
                     "\"oscili\" is an opcode of the language.", "\"p4\" is a field of the score.",
                     "A name has only the letters A to Z, digits and \"_\".", " "}));
    QCOMPARE(enabled, QList<bool>({false, false, false, false, false, false, true}));
    QVERIFY(staysOpen);
    QCOMPARE(first()->Text(), asText(RenamedText));
}

void tst_RenameFeature::numberToName_putsQuotesInTheScore()
{
    show(RenamedText);
    caret(first(), 10, 2);
    QStringList places;
    inDialog([&](QDialog &dialog) {
        places = rows(dialog);
        type(dialog, "Gong");
        QTest::keyClick(field(dialog), Qt::Key_Return);
    });
    QCOMPARE(places, QStringList({"piece.csd 3 instr [1], Bell", "piece.csd 6 schedule [1], 0, 1",
                                  "piece.csd 10 i [1] 0 1", "piece.csd 11 i[1] 1 1"}));
    QByteArray expected = RenamedText;
    expected.replace("instr 1", "instr Gong").replace("schedule 1", "schedule \"Gong\"");
    expected.replace("i 1 0 1", "i \"Gong\" 0 1").replace("i1 1 1", "i\"Gong\" 1 1");
    QCOMPARE(first()->Text(), asText(expected));
    first()->ClearState(TextState);
}

void tst_RenameFeature::obstacle_isSaidOnce()
{
    show(RenamedText);
    const auto says = [&](int line, int column, const char *text) {
        caret(first(), line, column);
        m_program->dialogs.expect({.text = QLatin1String(text), .icon = MessageIcon::Information});
        QTest::keyClick(first()->focusProxy(), Qt::Key_R, Keys);
    };
    says(4, 26, "There is no name at the caret.");
    says(5, 1, "\"print\" is an opcode of the language.");
    says(3, 2, "\"instr\" is a word of the language.");
    says(4, 18, "\"p4\" is a field of the score.");
    QCOMPARE(first()->Text(), asText(RenamedText));
}

void tst_RenameFeature::obstacle_thatTakesReading_isShown()
{
    show("<CsInstruments>\ninstr 1\nendin\n</CsInstruments>\n<CsScore>\ni 7 0 1\n</CsScore>\n");
    caret(first(), 6, 2);
    QString reason;
    bool isEnabled = true;
    inDialog([&](QDialog &dialog) {
        type(dialog, "8");
        reason = label(dialog, "LabelRenameReason");
        isEnabled = button(dialog)->isEnabled();
        dialog.reject();
    });
    QCOMPARE(reason, QStringLiteral("\"7\" is not defined in this piece."));
    QVERIFY(!isEnabled);
}

void tst_RenameFeature::hiddenNotes_areTold()
{
    show("<CsInstruments>\ninstr 1\nendin\n</CsInstruments>\n<CsScore>\ni $A 0 1\n</CsScore>\n");
    caret(first(), 2, 6);
    QString text;
    inDialog([&](QDialog &dialog) {
        text = label(dialog, "LabelRenamePlaces");
        dialog.reject();
    });
    QCOMPARE(text, QStringLiteral("1 place will change; 1 note, whose instrument a macro or an "
                                  "expression gives, stays as it is:"));
}

void tst_RenameFeature::caretAndView_stay()
{
    QByteArray text = "<CsInstruments>\ngkx init 1\n";
    text += QByteArray("gkx = gkx + 1 ; here\n").repeated(200) + "</CsInstruments>\n";
    show(text);
    caret(first(), 100, 2, 100, 8);
    first()->SetTopLine(90);
    inDialog([&](QDialog &dialog) {
        type(dialog, "gkLonger");
        QTest::keyClick(field(dialog), Qt::Key_Return);
    });
    QCOMPARE(first()->TopLine(), 90);
    QCOMPARE(first()->SelText(), QStringLiteral("Longer = gk"));
    QCOMPARE(first()->CaretLine(), 100);
    QCOMPARE(first()->CaretColumn(), 13);
    first()->ClearState(TextState);
}

void tst_RenameFeature::folds_stay()
{
    show(RenamedText);
    caret(first(), 2, 3);
    QVERIFY(first()->FoldLines({{4, 7}}));
    inDialog([&](QDialog &dialog) {
        type(dialog, "gkVolume");
        QTest::keyClick(field(dialog), Qt::Key_Return);
    });
    QCOMPARE(first()->Text(), asText(QByteArray(RenamedText).replace("gkLevel", "gkVolume")));
    QVERIFY(first()->IsFolded(3));
    first()->ClearState(TextState);
}

void tst_RenameFeature::split_getsTheSame()
{
    show(RenamedText);
    trigger("buttonSplit");
    caret(first(), 3, 8);
    caret(second(), 11, 6);
    second()->setFocus();
    QTRY_COMPARE(m_window->focusWidget(), second()->focusProxy());
    caret(second(), 5, 8);
    inDialog(second(), [&](QDialog &dialog) {
        type(dialog, "kLoudness");
        QTest::keyClick(field(dialog), Qt::Key_Return);
    });
    QByteArray expected = RenamedText;
    expected.replace("\tkamp =", "\tkLoudness =").replace("print kamp", "print kLoudness");
    QCOMPARE(first()->Text(), asText(expected));
    QCOMPARE(second()->Text(), asText(expected));
    QCOMPARE(first()->CaretLine(), 3);
    QCOMPARE(first()->CaretColumn(), 8);
    QCOMPARE(second()->CaretColumn(), 8);
    first()->Undo();
    QCOMPARE(first()->Text(), asText(RenamedText));
    first()->ClearState(TextState);
}

void tst_RenameFeature::otherChange_findsThePlacesAgain()
{
    show(RenamedText);
    caret(first(), 5, 8);
    QStringList places;
    inDialog([&](QDialog &dialog) {
        first()->ReplaceRanges({{2, 14, 0, QStringLiteral("; kamp")}, {6, 9, 1, "kamp"}});
        require(!button(dialog)->isEnabled(), "it can be carried out before it is read again");
        require(QTest::qWaitFor([&] { return isReady(dialog); }), "it does not end reading");
        places = rows(dialog);
        type(dialog, "kx");
        QTest::keyClick(field(dialog), Qt::Key_Return);
    });
    QCOMPARE(places,
             QStringList({"piece.csd 4 [kamp] = gkLevel * p4 ; kamp", "piece.csd 5 print [kamp]",
                          "piece.csd 6 schedule [kamp], 0, 1"}));
    QCOMPARE(first()->LineText(6), QStringLiteral("schedule kx, 0, 1"));
    first()->ClearState(TextState);
}

void tst_RenameFeature::project_changesBothTexts()
{
    ProjectWindow project;
    const QString orchestra = QStringLiteral("instr 1\r\nendin\r\n");
    const QString score = QStringLiteral("i 1 0 1\r\ni 1 1 1\r\n");
    project.showPair(orchestra.toUtf8(), score.toUtf8());
    LEditOCX *const upper = project.orchestra;
    LEditOCX *const lower = project.score;
    lower->setFocus();
    QTRY_COMPARE(project.window->focusWidget(), lower->focusProxy());
    caret(lower, 2, 2);
    QStringList places;
    inDialog(lower, [&](QDialog &dialog) {
        places = rows(dialog);
        type(dialog, "25");
        QTest::keyClick(field(dialog), Qt::Key_Return);
    });
    QCOMPARE(upper->Text(), QStringLiteral("instr 25\r\nendin\r\n"));
    QCOMPARE(lower->Text(), QStringLiteral("i 25 0 1\r\ni 25 1 1\r\n"));
    QCOMPARE(places, QStringList({"piece.orc 1 instr [1]", "piece.sco 1 i [1] 0 1",
                                  "piece.sco 2 i [1] 1 1"}));
    upper->Undo();
    lower->Undo();
    QCOMPARE(upper->Text(), orchestra);
    QCOMPARE(lower->Text(), score);
    QCOMPARE(project.dialogs.verify(), QString());
}

ARDIPHON_TEST(tst_RenameFeature, QApplication)
#include "tst_RenameFeature.moc"
