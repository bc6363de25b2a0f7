#include "platform/linux/DefaultApplications.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QTest>

using namespace ardiphon;

namespace {

const QByteArray Ours = "ours.desktop";
const QByteArray Type = "text/x-csound-csd";
const QByteArray Marker = "# This group was added by ArdiphonPro.\n";

} // namespace

/// The list of default applications as text.
class tst_DefaultApplications : public QObject
{
    Q_OBJECT

private slots:
    void default_isAddedAndUndoneToTheByte_data();
    void default_isAddedAndUndoneToTheByte();
    void default_givenTwice_isWrittenOnce();
    void default_notFirst_becomesFirst();
    void default_ofThreeTypes_undoneInAnyOrder_data();
    void default_ofThreeTypes_undoneInAnyOrder();
    void default_thatTheUserReplaced_isTakenOffTheList();
    void groupOfOurs_withOthersInIt_staysWithoutTheMarker();
    void anyList_isGivenBackToTheByte();
    void longList_isChangedAtOnce();
    void undo_withoutOurs_changesNothing_data();
    void undo_withoutOurs_changesNothing();
};

void tst_DefaultApplications::default_isAddedAndUndoneToTheByte_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("with");
    const QByteArray group = "[Default Applications]\n";
    const QByteArray line = "text/x-csound-csd=ours.desktop\n";
    const QByteArray others = "[Added Associations]\ntext/x-csound-csd=a.desktop;\n";

    QTest::newRow("no list") << QByteArray() << Marker + group + line;
    QTest::newRow("no group") << others << Marker + group + line + others;
    QTest::newRow("no group, comments first")
        << "\n# mine\n" + others << Marker + group + line + "\n# mine\n" + others;
    QTest::newRow("no line end") << QByteArray("[A]\nb=c") << Marker + group + line + "[A]\nb=c";
    QTest::newRow("empty group") << group << group + line;
    QTest::newRow("header ends the file")
        << QByteArray("[Default Applications]")
        << QByteArray("[Default Applications]\ntext/x-csound-csd=ours.desktop");
    QTest::newRow("other types") << group + "text/plain=a.desktop;\n\n" + others
                                 << group + line + "text/plain=a.desktop;\n\n" + others;
    QTest::newRow("another default") << group + "text/x-csound-csd=a.desktop\n"
                                     << group + "text/x-csound-csd=ours.desktop;a.desktop\n";
    QTest::newRow("other defaults")
        << group + "text/x-csound-csd = a.desktop;b.desktop;\n"
        << group + "text/x-csound-csd = ours.desktop;a.desktop;b.desktop;\n";
    QTest::newRow("an empty default") << group + "text/x-csound-csd=\n"
                                      << group + "text/x-csound-csd=ours.desktop;\n";
    QTest::newRow("a comment like it") << group + "#text/x-csound-csd=a.desktop\n"
                                       << group + line + "#text/x-csound-csd=a.desktop\n";
    QTest::newRow("CR LF") << QByteArray(
                                  "[Default Applications]\r\ntext/x-csound-csd=a.desktop\r\n")
                           << QByteArray("[Default Applications]\r\n"
                                         "text/x-csound-csd=ours.desktop;a.desktop\r\n");
    QTest::newRow("bytes of no encoding") << group + "x/y=\xff\xfe.desktop\n"
                                          << group + line + "x/y=\xff\xfe.desktop\n";
}

void tst_DefaultApplications::default_isAddedAndUndoneToTheByte()
{
    QFETCH(QByteArray, before);
    const QByteArray with = withDefault(before, Type, Ours);
    QTEST(with, "with");
    QCOMPARE(withoutDefault(with, Type, Ours), before);
}

void tst_DefaultApplications::default_givenTwice_isWrittenOnce()
{
    const QByteArray once = withDefault("[Default Applications]\nx/y=a.desktop\n", Type, Ours);
    QCOMPARE(withDefault(once, Type, Ours), once);
}

void tst_DefaultApplications::default_notFirst_becomesFirst()
{
    QCOMPARE(withDefault("[Default Applications]\ntext/x-csound-csd=a.desktop;ours.desktop;\n",
                         Type, Ours),
             QByteArray("[Default Applications]\ntext/x-csound-csd=ours.desktop;a.desktop;\n"));
}

void tst_DefaultApplications::default_ofThreeTypes_undoneInAnyOrder_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::newRow("no list") << QByteArray();
    QTest::newRow("header ends the file") << QByteArray("[Default Applications]");
    QTest::newRow("another default ends the file")
        << QByteArray("[Default Applications]\ntext/x-csound-orc=a.desktop");
}

void tst_DefaultApplications::default_ofThreeTypes_undoneInAnyOrder()
{
    QFETCH(QByteArray, before);
    QList<QByteArray> types{"text/x-csound-csd", "text/x-csound-orc", "text/x-csound-sco"};
    QByteArray with = before;
    for (const QByteArray &type : types)
        with = withDefault(with, type, Ours);
    QCOMPARE(with.count(Ours), 3);
    do {
        QByteArray without = with;
        for (const QByteArray &type : types)
            without = withoutDefault(without, type, Ours);
        QCOMPARE(without, before);
    } while (std::next_permutation(types.begin(), types.end()));
}

void tst_DefaultApplications::default_thatTheUserReplaced_isTakenOffTheList()
{
    QCOMPARE(withoutDefault("[Default Applications]\ntext/x-csound-csd=a.desktop;ours.desktop;\n",
                            Type, Ours),
             QByteArray("[Default Applications]\ntext/x-csound-csd=a.desktop;\n"));
}

void tst_DefaultApplications::groupOfOurs_withOthersInIt_staysWithoutTheMarker()
{
    QByteArray list = withDefault("[Z]\n", Type, Ours);
    list.replace("[Z]", "x/y=a.desktop\n\n[Z]");
    QCOMPARE(withoutDefault(list, Type, Ours),
             QByteArray("[Default Applications]\nx/y=a.desktop\n\n[Z]\n"));
}

/// Lists put together from pieces. They begin with a group, as every list that is one.
void tst_DefaultApplications::anyList_isGivenBackToTheByte()
{
    const QList<QByteArray> pieces{"[Default Applications]",
                                   "[Added Associations]",
                                   "\n",
                                   "\n",
                                   "\r\n",
                                   "text/x-csound-csd=",
                                   "a.desktop",
                                   ";",
                                   " ",
                                   "#",
                                   "=",
                                   "x/y=",
                                   "text/x-csound-orc",
                                   "[",
                                   "\xff",
                                   Marker};
    QRandomGenerator random(randomSeed(7));
    for (int round = 0; round < 20'000; ++round) {
        QByteArray before = random.bounded(2) ? "[Z]\n" : "[Default Applications]\n";
        for (int length = random.bounded(12); length > 0; --length)
            before += pieces[random.bounded(int(pieces.size()))];
        const QByteArray with = withDefault(before, Type, Ours);
        QVERIFY(with.contains(Ours));
        const QByteArray after = withoutDefault(with, Type, Ours);
        if (!before.contains(Marker)) // the marker above an empty group counts as ours
            QCOMPARE(after, before);
    }
}

/// A list that grew over years, or was made by a script. Looking at each line once takes some
/// milliseconds, looking at all of them for each one half a minute.
void tst_DefaultApplications::longList_isChangedAtOnce()
{
    QByteArray list = "[Default Applications]\n";
    for (int i = 0; i < 100'000; ++i)
        list += "text/x-" + QByteArray::number(i) + "=a.desktop;\n";
    QElapsedTimer timer;
    timer.start();
    const QByteArray with = withDefault(list, Type, Ours);
    const QByteArray last = withDefault(list, "text/x-99999", Ours);
    const QByteArray without = withoutDefault(with, Type, Ours);
    QVERIFY2(timer.elapsed() < 5000, qPrintable(QString::number(timer.elapsed())));
    QCOMPARE(with.size(), list.size() + Type.size() + Ours.size() + 2);
    QVERIFY(last.endsWith("\ntext/x-99999=ours.desktop;a.desktop;\n"));
    QCOMPARE(without, list);
}

void tst_DefaultApplications::undo_withoutOurs_changesNothing_data()
{
    QTest::addColumn<QByteArray>("list");
    QTest::newRow("no list") << QByteArray();
    QTest::newRow("no group") << QByteArray("[A]\nb=c");
    QTest::newRow("another default")
        << QByteArray("[Default Applications]\ntext/x-csound-csd=ours.desktop.desktop\n");
    QTest::newRow("ours in another group")
        << QByteArray("[Added Associations]\ntext/x-csound-csd=ours.desktop;\n");
}

void tst_DefaultApplications::undo_withoutOurs_changesNothing()
{
    QFETCH(QByteArray, list);
    QCOMPARE(withoutDefault(list, Type, Ours), list);
}

ARDIPHON_TEST(tst_DefaultApplications, QCoreApplication)
#include "tst_DefaultApplications.moc"
