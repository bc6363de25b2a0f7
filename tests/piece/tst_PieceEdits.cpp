// What users see of a piece that is edited is what they see of the same text read afresh.

#include "piece/PieceBodies.h"
#include "piece/PieceBrackets.h"
#include "piece/PieceFields.h"
#include "piece/PieceLines.h"
#include "piece/PieceNames.h"
#include "piece/PieceOccurrences.h"
#include "piece/PieceOutline.h"
#include "piece/PieceRename.h"
#include "support/FileBytes.h"
#include "support/RandomSeed.h"
#include "support/TestMain.h"
#include "support/TimeLimit.h"

#include <QDirIterator>
#include <QRandomGenerator>
#include <QTest>

#include <map>
#include <memory>

using namespace ardiphon;

class tst_PieceEdits : public QObject
{
    Q_OBJECT

private slots:
    void edits_ofAUnifiedFile_areReadAsANewText();
    void edits_ofAnOrchestraAndItsScore_areReadAsANewText();
    void macroThatCallsItself_isReadAsAnyOther();
    void lineOfFiveMegabytes_takesWhatIsTyped();
    void nulBytes_areReadAsAnyOther();
};

namespace {

constexpr int Edits = 10000; ///< of each form
constexpr int MostLines = 400;
constexpr int MostRows = 10000;

/// The texts of a piece and the model that follows them.
class EditedPiece
{
public:
    using Texts = std::map<DocumentRole, QByteArrayList>;

    explicit EditedPiece(const Texts &texts)
    {
        std::vector<Piece::Source> sources;
        for (const auto &[role, lines] : texts) {
            auto &source = m_lines[role] = std::make_unique<PieceTextLines>();
            source->lines = lines;
            sources.push_back({role, source.get()});
        }
        m_piece = std::make_unique<Piece>(sources, isTestOpcode);
    }

    const QByteArrayList &lines(DocumentRole role) const { return m_lines.at(role)->lines; }
    void replace(DocumentRole role, int line, int removed, const QByteArrayList &added)
    {
        m_piece->change(role, m_lines.at(role)->replace(line, removed, added));
    }
    /// The same texts in a model that has not followed any edit.
    EditedPiece afresh() const
    {
        Texts texts;
        for (const auto &[role, source] : m_lines)
            texts[role] = source->lines;
        return EditedPiece(texts);
    }
    Piece &piece() { return *m_piece; }
    const Piece &readPiece()
    {
        m_piece->readOn(QDeadlineTimer(QDeadlineTimer::Forever));
        return *m_piece;
    }

private:
    std::map<DocumentRole, std::unique_ptr<PieceTextLines>> m_lines;
    std::unique_ptr<Piece> m_piece;
};

QString shown(const PiecePlace &place)
{
    return QStringLiteral("%1:%2:%3+%4")
        .arg(int(place.role))
        .arg(place.line)
        .arg(place.column)
        .arg(place.length);
}

QString shown(LineRun run) { return QStringLiteral("%1-%2").arg(run.first).arg(run.last); }

/// Writes down what users see of a piece; where it asks at some places, by \a seed.
class Looker
{
public:
    Looker(const Piece &piece, quint32 seed) : m_piece(piece), m_random(seed) {}

    QStringList look()
    {
        for (const OutlineRow &row : outlineOf(m_piece, MostRows).rows)
            add("row", row.name + u'|' + row.note + u'|' + shown(row.place));
        for (const PieceName &name : namesOf(m_piece, MostRows))
            add("name", name.name + u'|' + name.scope + u'|' + shown(name.place));
        for (const PieceText &text : m_piece.texts()) {
            for (const LineRun block : outerBlocks(m_piece, text))
                add("outer", shown(block));
            for (int i = 0; i < 20; ++i)
                lookAtLine(text, 1 + int(m_random.bounded(text.lineCount())));
            for (int i = 0; i < 10; ++i)
                lookAtWord(text, 1 + int(m_random.bounded(text.lineCount())));
        }
        return m_seen;
    }

private:
    void add(const char *what, const QString &text)
    {
        m_seen.append(QLatin1String(what) + u' ' + text);
    }

    void lookAtLine(const PieceText &text, int line)
    {
        add("block", QStringLiteral("%1-%2").arg(line).arg(lastLineOfBlock(m_piece, text, line)));
        add("around", shown(blockAround(m_piece, text, line)));
        if (const auto body = bodyAt(m_piece, text, line)) {
            add("body", shown(body->lines) + body->names.join(u','));
            for (const PieceField &field : fieldsOf(text, *body).fields)
                add("field", QString::number(field.number) + field.name + shown(field.place));
        }
        const PieceState state = text.stateAt(line);
        add("state", QStringLiteral("%1 %2 %3")
                         .arg(int(state.code))
                         .arg(int(state.section))
                         .arg(int(state.body)));
    }

    void lookAtWord(const PieceText &text, int line)
    {
        const int column = int(m_random.bounded(30));
        if (const auto brackets = bracketsAt(text, line, column))
            add("bracket", shown(brackets->here) + u' ' + shown(brackets->partner));
        const auto symbol = symbolAt(m_piece, text, line, column);
        add("word", symbol ? QStringLiteral("%1 %2 %3 %4")
                                 .arg(int(symbol->kind))
                                 .arg(int(symbol->scope))
                                 .arg(QString::fromUtf8(symbol->name), shown(symbol->body))
                           : renameObstacle(symbol));
        if (!symbol)
            return;
        const LineRun within{std::max(1, line - 60), std::min(text.lineCount(), line + 60)};
        const QList<PiecePlace> places = occurrencesOf(m_piece, *symbol, text, within);
        add("places", QString::number(places.size()));
        for (const PiecePlace &place : places.first(std::min<qsizetype>(places.size(), 20)))
            add("place", shown(place));
        if (!renameObstacle(symbol).isEmpty() || m_random.bounded(4) != 0)
            return;
        PieceRename rename(m_piece, *symbol);
        rename.readOn(QDeadlineTimer(QDeadlineTimer::Forever));
        add("renamed", QString::number(rename.count()));
        for (qsizetype i = 0; i < std::min<qsizetype>(rename.count(), 20); ++i)
            add("rename", shown(rename.place(i)));
        add("refusal", rename.refusal(QStringLiteral("kNew")));
    }

    const Piece &m_piece;
    QRandomGenerator m_random;
    QStringList m_seen;
};

/// The first difference, or "".
QString difference(EditedPiece &followed, quint32 seed)
{
    EditedPiece afresh = followed.afresh();
    const QStringList expected = Looker(afresh.readPiece(), seed).look();
    const QStringList seen = Looker(followed.readPiece(), seed).look();
    for (qsizetype i = 0; i < std::max(seen.size(), expected.size()); ++i) {
        if (seen.value(i) != expected.value(i))
            return QStringLiteral("seen: %1, afresh: %2").arg(seen.value(i), expected.value(i));
    }
    return QString();
}

/// Edits as users make them, and worse.
class Editor
{
public:
    Editor(EditedPiece &piece, quint32 seed) : m_piece(piece), m_random(seed)
    {
        for (const char *const folder : {"/../data/examples", "/pieces"}) {
            QDirIterator files(QStringLiteral(TEST_SOURCE_DIR) + QLatin1String(folder),
                               {"*.csd", "*.orc", "*.sco"}, QDir::Files);
            QStringList paths;
            while (files.hasNext())
                paths.append(files.next());
            paths.sort(); // so that a seed tells the same everywhere
            for (const QString &path : paths)
                m_pasted += bytesOf(path).left(30'000).replace('\r', "").split('\n');
        }
    }

    void edit(DocumentRole role)
    {
        const int lines = int(m_piece.lines(role).size());
        const int line = 1 + some(lines);
        const int kind = some(100);
        if (kind < 60)
            type(role, line);
        else if (kind < 70)
            m_piece.replace(role, line, 1, {half(role, line, true), half(role, line, false)});
        else if (kind < 78 && line < lines)
            m_piece.replace(role, line, 2,
                            {m_piece.lines(role)[line - 1] + m_piece.lines(role)[line]});
        else if (kind < 86)
            remove(role, line, 1 + some(kind < 84 ? 3 : 200));
        else if (kind < 99 || lines > MostLines)
            m_piece.replace(role, line, 0, pasted(lines > MostLines ? 1 : 1 + some(30)));
        else
            m_piece.replace(role, line, some(2), {QByteArray(40'000, "; a"[some(3)])});
    }

private:
    int some(int below) { return int(m_random.bounded(below)); }

    /// A letter more or less, or a word of the language.
    void type(DocumentRole role, int line)
    {
        static const QByteArrayList words = {
            "instr ", "endin", "opcode",    "endop",      "/*",    "*/",   "{{",
            "}}",     "\"",    "if ",       "endif",      "then",  "goto", "#define A #",
            "#",      "$A",    "<CsScore>", "</CsScore>", "{ 3 N", "}",    "s",
            ";;; ",   "//",    "#ifdef",    "#end",       "kVar",  "\\",
        };
        QByteArray text = m_piece.lines(role)[line - 1];
        const int at = some(int(text.size()) + 1);
        const int kind = some(10);
        if (kind < 5)
            text.insert(at, char(32 + some(95)));
        else if (kind < 7)
            text.remove(at, 1);
        else if (kind < 9)
            text.insert(at, words[some(int(words.size()))]);
        else
            text.insert(at, char(some(256)));
        m_piece.replace(role, line, 1, {text.replace('\n', ' ')});
    }

    QByteArray half(DocumentRole role, int line, bool first)
    {
        const QByteArray &text = m_piece.lines(role)[line - 1];
        const qsizetype middle = text.size() / 2;
        return first ? text.first(middle) : text.sliced(middle);
    }

    void remove(DocumentRole role, int line, int count)
    {
        const int lines = int(m_piece.lines(role).size());
        const int removed = std::min(count, lines - line + 1);
        m_piece.replace(role, line, removed,
                        removed == lines ? QByteArrayList{""} : QByteArrayList());
    }

    QByteArrayList pasted(int count) { return m_pasted.mid(some(int(m_pasted.size())), count); }

    EditedPiece &m_piece;
    QRandomGenerator m_random;
    QByteArrayList m_pasted;
};

void compareAfterEdits(EditedPiece &piece, const QList<DocumentRole> &roles, quint32 seed)
{
    Editor editor(piece, seed);
    QRandomGenerator random(seed + 1);
    for (int edit = 0; edit < Edits; ++edit) {
        editor.edit(roles[random.bounded(roles.size())]);
        if (random.bounded(3) == 0)
            piece.piece().readOn(QDeadlineTimer(0));
        if (edit % 100 == 99)
            QVERIFY2(difference(piece, random.generate()).isEmpty(),
                     qPrintable(QStringLiteral("after %1: ").arg(edit + 1) + difference(piece, 0)));
    }
}

QByteArrayList exampleLines(const char *name)
{
    return bytesOf(QStringLiteral(TEST_SOURCE_DIR "/../data/examples/") + QLatin1String(name))
        .replace('\r', "")
        .split('\n');
}

} // namespace

void tst_PieceEdits::edits_ofAUnifiedFile_areReadAsANewText()
{
    EditedPiece piece({{DocumentRole::Csd, exampleLines("voice.csd")}});
    compareAfterEdits(piece, {DocumentRole::Csd}, randomSeed(21));
}

void tst_PieceEdits::edits_ofAnOrchestraAndItsScore_areReadAsANewText()
{
    EditedPiece piece({{DocumentRole::Orchestra, exampleLines("canon.orc")},
                       {DocumentRole::Score, exampleLines("canon.sco")}});
    compareAfterEdits(piece, {DocumentRole::Orchestra, DocumentRole::Score}, randomSeed(22));
}

void tst_PieceEdits::macroThatCallsItself_isReadAsAnyOther()
{
    const TimeLimit limit(std::chrono::seconds(20));
    EditedPiece piece({{DocumentRole::Orchestra,
                        {"#define A # $A $B #", "#define B(x) # $A $B($x) #", "instr $A",
                         "kx = $B($A)", "$A", "endin"}},
                       {DocumentRole::Score,
                        {"#define A #$B#", "#define B #$A $A#", "i $A 0 $B", "$A", "r 3 A",
                         "i 1 0 $A", "s", "{ 3 A", "i 1 $A 1", "}"}}});
    QCOMPARE(difference(piece, 1), QString());
    const Piece &read = piece.readPiece();
    QStringList names;
    for (const PieceName &name : namesOf(read, 100))
        names.append(name.name);
    QVERIFY2(names.contains(QStringLiteral("A")) && names.contains(QStringLiteral("B")),
             qPrintable(names.join(u' ')));
    QCOMPARE(symbolAt(read, *read.orchestra(), 5, 1)->kind, SymbolKind::Macro);
    for (int seed = 0; seed < 50; ++seed)
        Looker(read, quint32(seed)).look();
}

void tst_PieceEdits::lineOfFiveMegabytes_takesWhatIsTyped()
{
    const TimeLimit limit(std::chrono::seconds(60));
    const QByteArray line = "kx = p4 " + QByteArray("+ kx ").repeated(1'000'000);
    EditedPiece piece({{DocumentRole::Orchestra, {"instr 1", line, "endin", "instr 2", "endin"}}});
    QCOMPARE(difference(piece, 1), QString());
    for (const char *const typed : {"\"", "/*", "x", "instr 3\"", "; "}) {
        QByteArray text = piece.lines(DocumentRole::Orchestra)[1];
        text.insert(8, typed);
        piece.replace(DocumentRole::Orchestra, 2, 1, {text});
        QCOMPARE(difference(piece, 1), QString());
    }
    piece.replace(DocumentRole::Orchestra, 2, 1, {""});
    QCOMPARE(difference(piece, 1), QString());
    QCOMPARE(outlineOf(piece.readPiece(), 100).rows.size(), 3);
}

void tst_PieceEdits::nulBytes_areReadAsAnyOther()
{
    EditedPiece piece(
        {{DocumentRole::Csd,
          {"<CsInstruments>", QByteArray("instr\0 1", 8), QByteArray("instr 2\0 x", 10),
           QByteArray("\0kx = p4\0", 9), "endin", QByteArray("; \0", 3),
           QByteArray("#include \"a\0b\"", 14), "</CsInstruments>"}}});
    for (quint32 seed = 0; seed < 20; ++seed)
        QCOMPARE(difference(piece, seed), QString());
    QStringList rows;
    for (const OutlineRow &row : outlineOf(piece.readPiece(), 100).rows)
        rows.append(row.name);
    QVERIFY2(rows.contains(QStringLiteral("instr 2")), qPrintable(rows.join(u'|')));
    for (int key = 0; key < 50; ++key)
        piece.replace(DocumentRole::Csd, 1 + key % 8, 1, {QByteArray(key, '\0')});
    QCOMPARE(difference(piece, 1), QString());
}

ARDIPHON_TEST(tst_PieceEdits, NoApplication)
#include "tst_PieceEdits.moc"
