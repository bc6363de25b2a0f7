#include "check/SectionProblems.h"

#include "check/NearNames.h"

namespace ardiphon {

namespace {

/// The frame around all sections: the compiler does without either of its tags.
constexpr QByteArrayView Frame = "CsoundSynthesizer";
constexpr QByteArrayView Orchestra = "CsInstruments";

class SectionChecker
{
public:
    explicit SectionChecker(const Piece &piece) : m_piece(piece), m_text(*piece.orchestra()) {}

    QList<Problem> check()
    {
        m_text.visit(1, m_text.lineCount(),
                     kindsOf(LandmarkKind::SectionBegin, LandmarkKind::SectionEnd),
                     [this](PlacedLandmark found) {
                         take(found);
                         return true;
                     });
        if (m_isOpen)
            noEnd(m_text.lineCount());
        else if (m_hasSections && !m_hasOrchestra)
            add(Severity::Error, lineLikeOrchestra(),
                QStringLiteral("The file has no <CsInstruments>."));
        return m_problems;
    }

private:
    void take(PlacedLandmark found)
    {
        const QByteArray &name = m_piece.nameOf(*found.mark);
        const bool isEnd = found.mark->kind == LandmarkKind::SectionEnd;
        m_hasOrchestra |= name == Orchestra && !isEnd;
        if (isEnd && m_isOpen && name == m_name) {
            m_isOpen = false;
            return;
        }
        if (m_isOpen && (name == Frame || !isEnd))
            noEnd(found.line);
        if (name == Frame)
            return;
        m_hasSections = true;
        if (isEnd)
            add(Severity::Warning, found.line,
                QStringLiteral("</%1> ends no section.").arg(QString::fromUtf8(name)));
        m_isOpen = !isEnd;
        m_name = name;
        m_line = found.line;
    }

    /// The line with a tag that may be meant for that of the orchestra; else the first.
    int lineLikeOrchestra() const
    {
        constexpr int MostWrong = 4; // letters
        for (int line = 1; line <= m_text.lineCount(); ++line) {
            const QByteArray tag = m_text.line(line).toByteArray().trimmed();
            if (tag.startsWith('<') &&
                nameDistance(QString::fromUtf8(tag), QStringLiteral("<CsInstruments>"),
                             MostWrong) <= MostWrong)
                return line;
        }
        return 1;
    }

    /// The section that is open should have ended before \a line.
    void noEnd(int line)
    {
        add(Severity::Error, line,
            QStringLiteral("The section <%1> of line %2 does not end with </%1>.")
                .arg(QString::fromUtf8(m_name))
                .arg(m_line));
        m_isOpen = false;
    }

    void add(Severity severity, int line, const QString &sentence)
    {
        const int length = charactersOf(m_text.line(line), m_text.line(line).size());
        m_problems.append(
            {severity, {m_text.role(), line, 0, length}, sentence, SectionSource, {}});
    }

    const Piece &m_piece;
    const PieceText &m_text;
    QList<Problem> m_problems;
    bool m_isOpen = false;
    bool m_hasOrchestra = false;
    bool m_hasSections = false;
    QByteArray m_name; ///< of the section that is open
    int m_line = 0;    ///< where it begins
};

} // namespace

QList<Problem> sectionProblems(const Piece &piece)
{
    if (piece.orchestra()->role() != DocumentRole::Csd)
        return {};
    return SectionChecker(piece).check();
}

} // namespace ardiphon
