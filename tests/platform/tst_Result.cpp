#include "platform/Result.h"
#include "support/TestMain.h"

#include <memory>
#include <type_traits>

using namespace ardiphon;

class tst_Result : public QObject
{
    Q_OBJECT

private slots:
    void value_isThereWithoutAFailure();
    void failure_hasNoValueAndSaysWhy();
    void done_hasNoFailure();
    void value_thatOnlyMoves_movesOut();
    void result_isAskedBeforeItCounts();
};

void tst_Result::value_isThereWithoutAFailure()
{
    const Result<QString> read(QStringLiteral("text"));
    QVERIFY(read);
    QCOMPARE(*read, "text");
    QCOMPARE(read->size(), 4);
    QCOMPARE(read.value_or("other"), "text");
    QVERIFY(read.failure().isNone());
}

void tst_Result::failure_hasNoValueAndSaysWhy()
{
    const Result<QString> read(FileFailure{FileFailure::Kind::Folder});
    QVERIFY(!read);
    QCOMPARE(read.value_or("other"), "other");
    QCOMPARE(notOpenedText("a.csd", read.failure()),
             "The file \"a.csd\" cannot be opened: it is a folder.");
    const Result<> written(FileFailure{FileFailure::Kind::DiskFull});
    QVERIFY(!written);
    QCOMPARE(notSavedText("a.csd", written.failure()),
             "The file \"a.csd\" was not saved: the disk is full.");
}

void tst_Result::done_hasNoFailure()
{
    const Result<> written;
    QVERIFY(written);
    QCOMPARE(written.failure(), FileFailure());
}

void tst_Result::value_thatOnlyMoves_movesOut()
{
    Result<std::unique_ptr<int>> made(std::make_unique<int>(7));
    const std::unique_ptr<int> taken = *std::move(made);
    QCOMPARE(*taken, 7);
}

/// That something failed is no number, and a value that is false is no failure.
void tst_Result::result_isAskedBeforeItCounts()
{
    static_assert(!std::is_convertible_v<Result<>, bool>);
    static_assert(!std::is_convertible_v<Result<bool>, bool>);
    const Result<bool> written(false);
    QVERIFY(written && !*written);
}

ARDIPHON_TEST(tst_Result, NoApplication)
#include "tst_Result.moc"
