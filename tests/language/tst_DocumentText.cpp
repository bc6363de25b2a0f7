// What becomes of a file's bytes in the editor, and of the editor's text in a file.

#include "language/DocumentText.h"
#include "language/Utf8.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"

#include <QRandomGenerator>
#include <QTest>

using namespace ardiphon;

class tst_DocumentText : public QObject
{
    Q_OBJECT

private slots:
    void decode_anyBytes_encodeGivesThemBack_data();
    void decode_anyBytes_encodeGivesThemBack();
    void decode_randomBytes_encodeGivesThemBack();
    void decode_lineEnds_findsThePrevailing_data();
    void decode_lineEnds_findsThePrevailing();
    void encode_newDocument_isUtf8();
    void encode_latin1WithCharacterOutside_becomesUtf8();
    void encode_latin1ThatWouldReadAsUtf8_becomesUtf8();
    void characterAt_randomBytes_agreesWithQt();
    void utf16_randomText_countsAsQString();
};

void tst_DocumentText::decode_anyBytes_encodeGivesThemBack_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QByteArray() << QString();
    QTest::newRow("ascii") << QByteArray("a\r\nb") << "a\r\nb";
    QTest::newRow("utf-8") << QByteArray("\xC3\xA8") << QString(QChar(0xE8));
    QTest::newRow("latin-1") << QByteArray("\xE8") << QString(QChar(0xE8));
    QTest::newRow("mixed encodings")
        << QByteArray("\xE8 \xC3\xA8") << QString::fromLatin1("\xE8 \xC3\xA8");
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBFx") << "x";
    QTest::newRow("byte order mark alone") << QByteArray("\xEF\xBB\xBF") << "";
    QTest::newRow("two byte order marks")
        << QByteArray("\xEF\xBB\xBF\xEF\xBB\xBF") << QString(QChar(0xFEFF));
    QTest::newRow("byte order mark before latin-1")
        << QByteArray("\xEF\xBB\xBF\xE8") << QString::fromLatin1("\xEF\xBB\xBF\xE8");
    QTest::newRow("utf-16") << QByteArray("\xFF\xFE\x61\x00", 4)
                            << QString::fromLatin1("\xFF\xFE\x61\x00", 4);
    QTest::newRow("nul") << QByteArray("a\0b", 3) << QString::fromLatin1("a\0b", 3);
    QTest::newRow("lone cr") << QByteArray("a\rb") << "a\rb";
    QTest::newRow("overlong") << QByteArray("\xC0\x80") << QString::fromLatin1("\xC0\x80");
    QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80") << QString::fromLatin1("\xED\xA0\x80");
    QTest::newRow("too high") << QByteArray("\xF4\x90\x80\x80")
                              << QString::fromLatin1("\xF4\x90\x80\x80");
    QTest::newRow("cut character") << QByteArray("\xE2\x82") << QString::fromLatin1("\xE2\x82");
}

void tst_DocumentText::decode_anyBytes_encodeGivesThemBack()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    DocumentText document = decodeDocument(bytes);
    QCOMPARE(stringOf(document.utf8), text);
    QCOMPARE(encodeDocument(document.utf8, document.form), bytes);
}

void tst_DocumentText::decode_randomBytes_encodeGivesThemBack()
{
    QRandomGenerator random(randomSeed(11));
    const QByteArrayList pieces{"\r",
                                "\n",
                                "\r\n",
                                "a",
                                "\xC3\xA8",
                                "\xE8",
                                "\xEF\xBB\xBF",
                                "\xF0\x9F\x8E\xB5",
                                QByteArray(1, '\0'),
                                "\x80"};
    for (int round = 0; round < 20000; ++round) {
        QByteArray bytes;
        for (int i = random.bounded(12); i > 0; --i)
            bytes += pieces[random.bounded(int(pieces.size()))];
        DocumentText document = decodeDocument(bytes);
        QCOMPARE(encodeDocument(document.utf8, document.form), bytes);
    }
}

void tst_DocumentText::decode_lineEnds_findsThePrevailing_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<int>("lineEnd");
    QTest::newRow("none") << QByteArray("a") << int(LineEnd::CrLf);
    QTest::newRow("cr lf") << QByteArray("a\r\nb\nc\r\n") << int(LineEnd::CrLf);
    QTest::newRow("lf") << QByteArray("a\nb\r\nc\n") << int(LineEnd::Lf);
    QTest::newRow("cr") << QByteArray("a\rb\r\nc\r") << int(LineEnd::Cr);
    QTest::newRow("cr at the end") << QByteArray("\r") << int(LineEnd::Cr);
    QTest::newRow("lf at the end") << QByteArray("\n") << int(LineEnd::Lf);
}

void tst_DocumentText::decode_lineEnds_findsThePrevailing()
{
    QFETCH(QByteArray, bytes);
    QFETCH(int, lineEnd);
    QCOMPARE(int(decodeDocument(bytes).form.lineEnd), lineEnd);
}

void tst_DocumentText::encode_newDocument_isUtf8()
{
    DocumentForm form;
    QCOMPARE(encodeDocument("\xE2\x82\xAC", form), QByteArray("\xE2\x82\xAC"));
    QCOMPARE(int(form.lineEnd), int(LineEnd::CrLf));
}

void tst_DocumentText::encode_latin1WithCharacterOutside_becomesUtf8()
{
    DocumentText document = decodeDocument("\xE8");
    QVERIFY(!document.form.utf8);
    const QByteArray edited = document.utf8 + "\xE2\x82\xAC";
    QCOMPARE(encodeDocument(edited, document.form), edited);
    QVERIFY(document.form.utf8);
}

void tst_DocumentText::encode_latin1ThatWouldReadAsUtf8_becomesUtf8()
{
    DocumentText document = decodeDocument("\xE8");
    // As Latin-1 these two characters would be the bytes of one in UTF-8.
    const QByteArray edited = QString::fromLatin1("\xC3\xA8").toUtf8();
    const QByteArray written = encodeDocument(edited, document.form);
    QCOMPARE(decodeDocument(written).utf8, edited);
    QVERIFY(document.form.utf8);
    DocumentForm latin1{false, false, LineEnd::CrLf};
    QCOMPARE(encodeDocument("plain", latin1), QByteArray("plain"));
    QVERIFY(!latin1.utf8);
}

/// Well-formed text is where no byte above 127 counts as a character of its own.
void tst_DocumentText::characterAt_randomBytes_agreesWithQt()
{
    const auto isWellFormed = [](const QByteArray &bytes) {
        for (qsizetype at = 0; at < bytes.size(); at += characterAt(bytes, at).length)
            if (characterAt(bytes, at).length == 1 && static_cast<unsigned char>(bytes[at]) > 127)
                return false;
        return true;
    };
    QRandomGenerator random(randomSeed(3));
    for (int round = 0; round < 20000; ++round) {
        QByteArray bytes;
        for (int i = random.bounded(5); i > 0; --i)
            bytes.append(char(random.bounded(2) ? 0x80 + random.bounded(64) : random.bounded(256)));
        QCOMPARE(isWellFormed(bytes), bytes.isValidUtf8());
    }
}

void tst_DocumentText::utf16_randomText_countsAsQString()
{
    QRandomGenerator random(randomSeed(5));
    const QStringList pieces{"a", "abcdefghijk", QString(QChar(0xE8)), QString(QChar(0x20AC)),
                             QString::fromUcs4(U"\U0001F3B5")};
    for (int round = 0; round < 5000; ++round) {
        QString text;
        for (int i = random.bounded(8); i > 0; --i)
            text += pieces[random.bounded(int(pieces.size()))];
        const QByteArray utf8 = text.toUtf8();
        QCOMPARE(utf16Length(utf8), text.size());
        const qsizetype characters = random.bounded(int(text.size()) + 2);
        QString head = text.first(qMin(characters, text.size()));
        if (head.size() && head.back().isHighSurrogate())
            head.chop(1);
        QCOMPARE(bytesOfUtf16(utf8, characters), head.toUtf8().size());
        for (qsizetype at = 0; at < utf8.size(); at += characterAt(utf8, at).length)
            QCOMPARE(characterBefore(utf8, at + characterAt(utf8, at).length), at);
    }
}

ARDIPHON_TEST(tst_DocumentText, QCoreApplication)
#include "tst_DocumentText.moc"
