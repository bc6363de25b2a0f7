#include "documents/Headers.h"
#include "support/TestMain.h"

#include <QTest>

using namespace ardiphon;

class tst_Headers : public QObject
{
    Q_OBJECT

private slots:
    void nineHeaders_haveTheirCaptions();
    void header_hasItsThreeNumbers_data();
    void header_hasItsThreeNumbers();
    void template_isTheseBytes();
};

void tst_Headers::nineHeaders_haveTheirCaptions()
{
    QStringList captions;
    for (const Header &header : headers())
        captions.append(QLatin1String(header.caption));
    const QStringList expected{
        QStringLiteral("&1)  22050 Hz - Mono"),   QStringLiteral("&2)  22050 Hz - Stereo"),
        QStringLiteral("&3)  22050 Hz - Quadri"), QStringLiteral("&4)  44100 Hz - Mono"),
        QStringLiteral("&5)  44100 Hz - Stereo"), QStringLiteral("&6)  44100 Hz - Quadri"),
        QStringLiteral("&7)  48000 Hz - Mono"),   QStringLiteral("&8)  48000 Hz - Stereo"),
        QStringLiteral("&9)  48000 Hz - Quadri")};
    QCOMPARE(captions, expected);
}

void tst_Headers::header_hasItsThreeNumbers_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("text");
    const QString form = QStringLiteral("\r\n\tsr     = %1\r\n\tkr     = %2\r\n\tksmps  = 10\r\n"
                                        "\tnchnls = %3\r\n");
    const char *const rates[3][2] = {{"22050", "2205"}, {"44100", "4410"}, {"48000", "4800"}};
    const char *const channels[] = {"1", "2", "4"};
    for (int i = 0; i < 9; ++i)
        QTest::newRow(headers()[std::size_t(i)].name)
            << i
            << form.arg(QLatin1String(rates[i / 3][0]), QLatin1String(rates[i / 3][1]),
                        QLatin1String(channels[i % 3]));
}

void tst_Headers::header_hasItsThreeNumbers()
{
    QFETCH(int, index);
    QFETCH(QString, text);
    QCOMPARE(headerText(headers()[std::size_t(index)]), text);
}

void tst_Headers::template_isTheseBytes()
{
    const char *const text = "\r\n<CsoundSynthesizer>\r\n\r\n<CsOptions>\r\n</CsOptions>\r\n\r\n"
                             "<CsInstruments>\r\n</CsInstruments>\r\n\r\n<CsScore>\r\n</CsScore>"
                             "\r\n\r\n</CsoundSynthesizer>\r\n\r\n";
    QCOMPARE(csdTemplate(), QString::fromLatin1(text));
}

ARDIPHON_TEST(tst_Headers, NoApplication)
#include "tst_Headers.moc"
