#include "typing/Candidates.h"

#include "language/WordTables.h"
#include "piece/PieceSymbol.h"
#include "typing/ClosingCandidates.h"
#include "typing/KnownWords.h"
#include "typing/PieceCandidates.h"

#include <utility>

namespace ardiphon {

namespace {

/// Adds what the kind of a place asks for.
class PlaceCandidates
{
public:
    PlaceCandidates(const CompletionSources &sources, const CompletionPlace &place,
                    CompletionReason reason)
        : m_sources(sources),
          m_place(place),
          m_reason(reason),
          m_fit(place, signaturesAt()),
          m_found(place.typed),
          m_piece(sources.piece, place, m_fit, m_found)
    {
    }

    QList<Completion> read(const QString &behind)
    {
        if (m_reason != CompletionReason::Letters)
            addBracket(behind);
        if (m_reason != CompletionReason::Opening || m_place.isQuoted)
            addKind();
        return m_found.take();
    }

private:
    QList<Signature> signaturesAt() const
    {
        const QString opcode = QString::fromUtf8(m_place.opcode);
        if (opcode.isEmpty())
            return {};
        if (const int record = m_sources.opcodes.recordOf(opcode))
            return m_sources.opcodes.of(record).signatures;
        return userSignatures(opcode);
    }

    QList<Signature> userSignatures(const QString &opcode) const
    {
        QList<Signature> signatures;
        const PieceText *const text = m_sources.piece.orchestra();
        if (text == nullptr || !text->definesOpcode(m_place.opcode))
            return signatures;
        text->visitKind(LandmarkKind::Opcode, [&](PlacedLandmark found) {
            if (m_sources.piece.nameText(*found.mark) == opcode && found.line <= text->lineCount())
                signatures = userOpcode(text->line(found.line)).signatures;
            return signatures.isEmpty();
        });
        return signatures;
    }

    void addKind()
    {
        switch (m_place.kind) {
        case PlaceKind::Nothing:
            break;
        case PlaceKind::Statement:
            if (isNumber())
                break;
            addEnd();
            addSnippets(SnippetLanguage::Orchestra);
            m_piece.addVariables();
            m_piece.addOpcodes();
            m_piece.addMacros();
            addOpcodes();
            break;
        case PlaceKind::Output:
            m_piece.addVariables();
            break;
        case PlaceKind::Opcode:
            m_piece.addOpcodes();
            m_piece.addMacros();
            addOpcodes();
            break;
        case PlaceKind::Argument:
        case PlaceKind::Value:
            addValues();
            break;
        case PlaceKind::Text:
            if (m_fit.wantsFile())
                addFiles();
            break;
        case PlaceKind::File:
            addFiles();
            break;
        case PlaceKind::Macro:
            m_piece.addMacros();
            addWords(u'$');
            break;
        case PlaceKind::Directive:
            addWords(u'#');
            break;
        default:
            addNamed();
        }
    }

    /// What stands where one kind of names is wanted.
    void addNamed()
    {
        switch (m_place.kind) {
        case PlaceKind::Label:
            m_piece.addLabels();
            break;
        case PlaceKind::ScoreLabel:
            m_piece.addScoreMarks();
            break;
        case PlaceKind::Instrument:
            m_piece.addInstruments();
            addValuesUnlessQuoted();
            break;
        case PlaceKind::ScoreInstrument:
            m_piece.addInstruments();
            break;
        case PlaceKind::Channel:
            m_piece.addChannels();
            addValuesUnlessQuoted();
            break;
        case PlaceKind::GenNumber:
            addGenRoutines();
            addValuesUnlessQuoted();
            break;
        case PlaceKind::ScoreGenNumber:
            addGenRoutines();
            break;
        case PlaceKind::ScoreStatement:
            m_piece.addMacros();
            addKnown(scoreStatements(), CompletionKind::Statement);
            addSnippets(SnippetLanguage::Score);
            break;
        case PlaceKind::Tag:
            addTags();
            break;
        case PlaceKind::Option:
            addKnown(compilerOptions(), CompletionKind::Option);
            addSnippets(SnippetLanguage::Options);
            break;
        case PlaceKind::Document:
            addSnippets(SnippetLanguage::Document);
            addTags();
            break;
        default:
            break;
        }
    }

    void addValuesUnlessQuoted()
    {
        if (!m_place.isQuoted)
            addValues();
    }

    bool isNumber() const { return !m_place.typed.isEmpty() && m_place.typed[0].isDigit(); }

    void addValues()
    {
        if (m_fit.wantsTable())
            m_piece.addTables();
        if (isNumber())
            return;
        m_piece.addVariables();
        m_piece.addPFields();
        m_piece.addOpcodes();
        m_piece.addMacros();
        addOpcodes();
    }

    // The word tables. ----------------------------------------------------------------------------

    /// Only those whose names have the letters are read.
    void addOpcodes()
    {
        for (int record = 1; record <= m_sources.opcodes.recordCount(); ++record) {
            const QString &name = m_sources.opcodes.nameOf(record);
            if (name.isEmpty() || name[0] == u'$' || name[0] == u'#')
                continue;
            Completion candidate;
            candidate.name = name;
            const auto match = m_found.match(candidate);
            if (!match)
                continue;
            candidate.record = record;
            const bool isWord = isLanguageWord(name.toUtf8());
            candidate.kind = isWord ? CompletionKind::Word : CompletionKind::Opcode;
            candidate.fit = fitOf(candidate, isWord);
            if (candidate.fit != PlaceFit::None)
                m_found.add(std::move(candidate), *match);
        }
    }

    int fitOf(const Completion &candidate, bool isWord)
    {
        if (isWord)
            return m_fit.ofWord(candidate.name);
        // Without a letter there is no telling which of all are wanted; none of them is read.
        if (m_found.typed().isEmpty())
            return m_fit.isValue() ? PlaceFit::None : 0;
        const QList<Signature> &signatures = m_sources.opcodes.of(candidate.record).signatures;
        const bool isWords = !signatures.isEmpty() && signatures[0].form == SignatureForm::Words;
        return isWords ? m_fit.ofWord(candidate.name) : m_fit.ofOpcode(signatures);
    }

    /// The words of the tables that begin with \a sign.
    void addWords(QChar sign)
    {
        for (int record = 1; record <= m_sources.opcodes.recordCount(); ++record) {
            const QString &name = m_sources.opcodes.nameOf(record);
            if (!name.startsWith(sign))
                continue;
            Completion candidate;
            candidate.kind = sign == u'$' ? CompletionKind::Macro : CompletionKind::Word;
            candidate.name = name;
            candidate.record = record;
            m_found.add(std::move(candidate));
        }
    }

    void addTags()
    {
        const QString open = openSection();
        for (qsizetype i = 1; i < m_sources.words.CsdWords.size(); ++i) {
            Completion candidate;
            candidate.kind = CompletionKind::Tag;
            candidate.name = m_sources.words.CsdWords[i];
            if (!candidate.name.startsWith(u'<'))
                continue;
            const bool closes = candidate.name.startsWith(QLatin1String("</"));
            const bool closesOpen = candidate.name == QStringLiteral("</%1>").arg(open);
            candidate.form =
                closes ? QStringLiteral("ends the section") : QStringLiteral("begins the section");
            candidate.fit = closesOpen ? PlaceFit::Best : closes ? 0 : 1;
            m_found.add(std::move(candidate));
        }
    }

    /// The section above that has not ended; "" for none.
    QString openSection() const
    {
        QString open;
        const PieceText &text = *m_sources.piece.text(m_place.role);
        text.visitBack(m_place.line - 1, [&](PlacedLandmark found) {
            const bool begins = found.mark->kind == LandmarkKind::SectionBegin;
            if (begins)
                open = m_sources.piece.nameText(*found.mark);
            return !begins && found.mark->kind != LandmarkKind::SectionEnd;
        });
        return open;
    }

    // Tables of ours. -----------------------------------------------------------------------------

    void addKnown(std::span<const KnownWord> words, CompletionKind kind)
    {
        for (const KnownWord &word : words) {
            Completion candidate;
            candidate.kind = kind;
            candidate.name = QLatin1String(word.name);
            candidate.form = QLatin1String(word.form);
            candidate.sentence = QLatin1String(word.sentence);
            m_found.add(std::move(candidate));
        }
    }

    /// Of GEN10 the text has the number, of one without a number the name in quotes.
    void addGenRoutines()
    {
        for (const KnownWord &word : genRoutines()) {
            Completion candidate;
            candidate.kind = CompletionKind::Gen;
            candidate.name = QLatin1String(word.name);
            const bool isNumber = candidate.name.startsWith(QLatin1String("GEN"));
            candidate.text = isNumber ? QString::number(candidate.name.mid(3).toInt())
                                      : QStringLiteral("\"%1\"").arg(candidate.name);
            candidate.form = QLatin1String(word.form);
            candidate.sentence = QLatin1String(word.sentence);
            candidate.fit = PlaceFit::Best;
            m_found.add(std::move(candidate));
        }
    }

    void addSnippets(SnippetLanguage language)
    {
        for (int i = 0; i < m_sources.snippets.size(); ++i) {
            const Snippet &snippet = m_sources.snippets[i];
            if (snippet.language != language)
                continue;
            Completion candidate;
            candidate.kind = CompletionKind::Snippet;
            candidate.name = snippet.word;
            candidate.text = snippet.text;
            candidate.form = snippet.title;
            candidate.sentence = snippet.text;
            candidate.snippet = i;
            candidate.fit = m_fit.ofVariable({});
            m_found.add(std::move(candidate));
        }
    }

    void addFiles()
    {
        if (!m_sources.files)
            return;
        for (const QString &file : m_sources.files()) {
            Completion candidate;
            candidate.kind = CompletionKind::File;
            candidate.name = file;
            candidate.fit = PlaceFit::Best;
            m_found.add(std::move(candidate));
        }
    }

    // What is open. -------------------------------------------------------------------------------

    /// It comes behind what is typed. Where that may become a name, the names are first.
    void addBracket(const QString &behind)
    {
        const auto closing = missingBracket(m_place, behind);
        if (!closing)
            return;
        Completion candidate;
        candidate.kind = CompletionKind::Closing;
        candidate.name = closing->text;
        candidate.form = closing->form;
        candidate.fit = m_place.typed.isEmpty() || isNumber() ? PlaceFit::Best + 1 : PlaceFit::None;
        candidate.isAppended = true;
        m_found.append(std::move(candidate));
    }

    void addEnd()
    {
        const PieceText &text = *m_sources.piece.text(m_place.role);
        const auto closing = missingEnd(m_sources.piece, text, m_place.line);
        if (!closing)
            return;
        Completion candidate;
        candidate.kind = CompletionKind::Closing;
        candidate.name = closing->text;
        candidate.form = closing->form;
        candidate.fit = PlaceFit::Best + 1;
        m_found.add(std::move(candidate));
    }

    const CompletionSources &m_sources;
    const CompletionPlace &m_place;
    const CompletionReason m_reason;
    const PlaceFit m_fit;
    CandidateList m_found;
    PieceCandidates m_piece;
};

} // namespace

QList<Completion> candidatesAt(const CompletionSources &sources, const CompletionPlace &place,
                               CompletionReason reason, const QString &behind)
{
    if (!place.isSomething() || sources.piece.text(place.role) == nullptr)
        return {};
    return PlaceCandidates(sources, place, reason).read(behind);
}

} // namespace ardiphon
