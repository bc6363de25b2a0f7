#include "documents/CsdFixture.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QLineEdit>
#include <QListView>
#include <QTimer>

using namespace ardiphon;

/// Going to a name, and between a note and its instrument.
class tst_GoFeature : public QObject, private CsdFixture
{
    Q_OBJECT

private slots:
    void init() { start(); }
    void cleanup() { QCOMPARE(finish(), QString()); }

    void list_hasEveryName();
    void list_typed_narrowsAndGoes();
    void list_noMatch_enterDoesNothing();
    void list_escape_leavesTheCaret();
    void list_hasWhatIncludedFilesDefine();
    void note_ofAnIncludedInstrument_opensTheFile();
    void include_opensTheFile();
    void note_goesToItsInstrumentAndBack();
    void carriedNote_goesToItsInstrumentAndBack();
    void note_withoutInstrument_saysSo();
    void instrument_withoutNote_saysSo();

private:
    /// Opens the list by its key and has \a steps done in it; they have to close it.
    void inList(const std::function<void(QDialog &)> &steps)
    {
        QTimer::singleShot(0, m_window, [&steps] {
            auto *const dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
            require(dialog != nullptr, "the list does not show");
            steps(*dialog);
        });
        QTest::keyClick(first()->focusProxy(), Qt::Key_O, Keys);
    }
    void goBetween() { QTest::keyClick(first()->focusProxy(), Qt::Key_I, Keys); }
    static QStringList namesIn(const QDialog &dialog)
    {
        const auto *const list = dialog.findChild<QListView *>(QStringLiteral("ListGoNames"));
        QStringList names;
        for (int row = 0; row < list->model()->rowCount(); ++row)
            names.append(list->model()->index(row, 0).data().toString());
        return names;
    }
    static QLineEdit *lineIn(const QDialog &dialog)
    {
        return dialog.findChild<QLineEdit *>(QStringLiteral("LineGoFilter"));
    }

    void showIncluding()
    {
        m_tools = m_program->write(QStringLiteral("tools.inc"), "\ninstr 7, Bell\nendin\n");
        m_program->context.windows.openFile = [this](const QString &path, int line) {
            m_opened.append(QStringLiteral("%1:%2").arg(path).arg(line));
            return true;
        };
        m_opened.clear();
        show("<CsInstruments>\n#include \"tools.inc\"\n#include \"none.inc\"\n</CsInstruments>\n"
             "<CsScore>\ni \"Bell\" 0 1\ni 7 0 1\ni 8 0 1\n</CsScore>\n");
    }

    QString m_tools;
    QStringList m_opened;
    static constexpr auto Keys = Qt::ControlModifier | Qt::ShiftModifier;
};

namespace {

const QByteArray NamedPiece = "<CsInstruments>\n"
                              "sr = 44100\n"
                              "gkLevel init 0\n"
                              "instr 1, Bell\n"
                              "kamp = p4\n"
                              "again: kamp = 2\n"
                              "chnset kamp, \"level\"\n"
                              "endin\n"
                              "instr 2\n"
                              "kamp = p4\n"
                              "endin\n"
                              "</CsInstruments>\n"
                              "<CsScore>\n"
                              "i 1.2 0 1\n"
                              "i 9 0 1\n"
                              "i \"Bell\" 0 1\n"
                              "i1 0 1\n"
                              "</CsScore>\n";

} // namespace

void tst_GoFeature::list_hasEveryName()
{
    show(NamedPiece);
    QStringList names;
    QString title;
    inList([&](QDialog &dialog) {
        names = namesIn(dialog);
        title = dialog.windowTitle();
        dialog.reject();
    });
    QCOMPARE(title, QStringLiteral("Go to Name"));
    QCOMPARE(names, QStringList({"sr   header value, line 2", "gkLevel   variable, line 3",
                                 "1   instrument, line 4", "Bell   instrument, line 4",
                                 "kamp   variable of instr 1, line 5",
                                 "again   label of instr 1, line 6", "level   channel, line 7",
                                 "2   instrument, line 9", "kamp   variable of instr 2, line 10"}));
}

void tst_GoFeature::list_typed_narrowsAndGoes()
{
    show(NamedPiece);
    QStringList names;
    inList([&](QDialog &dialog) {
        QTest::keyClicks(lineIn(dialog), QStringLiteral("ka"));
        names = namesIn(dialog);
        QTest::keyClick(lineIn(dialog), Qt::Key_Down);
        QTest::keyClick(lineIn(dialog), Qt::Key_Return);
    });
    QCOMPARE(names, QStringList({"kamp   variable of instr 1, line 5",
                                 "kamp   variable of instr 2, line 10"}));
    QCOMPARE(first()->CaretLine(), 10);
    QCOMPARE(first()->CaretColumn(), 0);
    QTRY_COMPARE(m_window->focusWidget(), first()->focusProxy());
}

void tst_GoFeature::list_noMatch_enterDoesNothing()
{
    show(NamedPiece);
    bool isOpen = false;
    inList([&](QDialog &dialog) {
        QTest::keyClicks(lineIn(dialog), QStringLiteral("zzz"));
        QTest::keyClick(lineIn(dialog), Qt::Key_Return);
        isOpen = dialog.isVisible();
        dialog.reject();
    });
    QVERIFY(isOpen);
    QCOMPARE(first()->CaretLine(), 1);
}

void tst_GoFeature::list_escape_leavesTheCaret()
{
    show(NamedPiece);
    caret(first(), 3, 2);
    inList([](QDialog &dialog) {
        QTest::keyClicks(lineIn(dialog), QStringLiteral("ka"));
        QTest::keyClick(lineIn(dialog), Qt::Key_Escape);
    });
    QCOMPARE(first()->CaretLine(), 3);
    QCOMPARE(first()->CaretColumn(), 2);
}

void tst_GoFeature::list_hasWhatIncludedFilesDefine()
{
    showIncluding();
    QStringList names;
    inList([&](QDialog &dialog) {
        names = namesIn(dialog);
        QTest::keyClicks(lineIn(dialog), QStringLiteral("bell"));
        QTest::keyClick(lineIn(dialog), Qt::Key_Return);
    });
    QCOMPARE(
        names,
        QStringList({"tools.inc   included file, line 2", "none.inc   included file, line 3",
                     "7   instrument, tools.inc, line 2", "Bell   instrument, tools.inc, line 2"}));
    QCOMPARE(m_opened, QStringList(m_tools + QStringLiteral(":2")));
    QCOMPARE(first()->CaretLine(), 1);
}

void tst_GoFeature::note_ofAnIncludedInstrument_opensTheFile()
{
    showIncluding();
    caret(first(), 6, 0);
    goBetween();
    QCOMPARE(m_opened, QStringList(m_tools + QStringLiteral(":2")));
    caret(first(), 7, 0);
    goBetween();
    QCOMPARE(m_opened.size(), 2);
    caret(first(), 8, 0);
    m_program->dialogs.expect({.text = QStringLiteral("The orchestra has no instrument 8."),
                               .icon = MessageIcon::Information});
    goBetween();
    QCOMPARE(m_opened.size(), 2);
}

void tst_GoFeature::include_opensTheFile()
{
    showIncluding();
    caret(first(), 2, 3);
    goBetween();
    QCOMPARE(m_opened, QStringList(m_tools + QStringLiteral(":1")));
    caret(first(), 3, 0);
    m_program->dialogs.expect({.text = QStringLiteral("The included file none.inc was not found."),
                               .icon = MessageIcon::Information});
    goBetween();
    QCOMPARE(m_opened.size(), 1);
}

void tst_GoFeature::note_goesToItsInstrumentAndBack()
{
    show(NamedPiece);
    caret(first(), 14, 4);
    goBetween();
    QCOMPARE(first()->CaretLine(), 4);
    QCOMPARE(first()->CaretColumn(), 6);
    goBetween();
    QCOMPARE(first()->CaretLine(), 16);
    goBetween();
    QCOMPARE(first()->CaretLine(), 4);
    QCOMPARE(first()->CaretColumn(), 9);
    caret(first(), 5, 1);
    goBetween();
    QCOMPARE(first()->CaretLine(), 17);
    caret(first(), 5, 1);
    goBetween();
    QCOMPARE(first()->CaretLine(), 14); // from the end on with the first
    caret(first(), 1, 0);
    goBetween();
    QCOMPARE(first()->CaretLine(), 1);
}

void tst_GoFeature::carriedNote_goesToItsInstrumentAndBack()
{
    show("<CsInstruments>\ninstr 1\nendin\ninstr Bell\nendin\n</CsInstruments>\n<CsScore>\n"
         "i \"Bell\" 0 1\ni . + .\ni\ni 1 0 1\n</CsScore>\n");
    caret(first(), 9, 3);
    goBetween();
    QCOMPARE(first()->CaretLine(), 4);
    goBetween();
    QCOMPARE(first()->CaretLine(), 10);
    goBetween();
    QCOMPARE(first()->CaretLine(), 4);
    goBetween();
    QCOMPARE(first()->CaretLine(), 8);
}

void tst_GoFeature::note_withoutInstrument_saysSo()
{
    show(NamedPiece);
    caret(first(), 15, 0);
    m_program->dialogs.expect({.text = QStringLiteral("The orchestra has no instrument 9."),
                               .icon = MessageIcon::Information});
    goBetween();
    QCOMPARE(first()->CaretLine(), 15);
}

void tst_GoFeature::instrument_withoutNote_saysSo()
{
    show(NamedPiece);
    caret(first(), 10, 0);
    m_program->dialogs.expect(
        {.text = QStringLiteral("No line of the score plays this instrument."),
         .icon = MessageIcon::Information});
    goBetween();
    QCOMPARE(first()->CaretLine(), 10);
}

ARDIPHON_TEST(tst_GoFeature, QApplication)
#include "tst_GoFeature.moc"
