#pragma once

#include "piece/PieceSymbol.h"
#include "piece/PieceWordReader.h"

#include <QHash>
#include <QList>

#include <deque>
#include <vector>

namespace ardiphon {

/// A part of a text that gets another text.
struct RenameEdit
{
    PiecePlace place;
    QString text;

    friend bool operator==(const RenameEdit &, const RenameEdit &) = default;
};

/// Why a word with that meaning cannot get another name at all, in a sentence that can be shown; ""
/// where it can. None is a place without a word.
QString renameObstacle(const std::optional<PieceSymbol> &symbol);

/// Gives something in a piece another name: finds all places first, in slices, and then says for
/// any new name whether it can be and what is to be changed. It changes no text itself.
class PieceRename
{
public:
    /// \a piece outlives it, is read, and stays as it is as long as this is used. \a symbol has no
    /// obstacle.
    PieceRename(const Piece &piece, PieceSymbol symbol);

    /// Reads until all is read or \a deadline has passed; at least a hundred lines or so. True when
    /// all is read.
    bool readOn(QDeadlineTimer deadline);
    bool isRead() const { return m_sources.empty(); }
    /// How many of the lines that there are have been read.
    int linesRead() const { return m_linesRead; }
    int linesInAll() const { return m_linesInAll; }

    // When all is read:

    const PieceSymbol &symbol() const { return m_symbol; }
    /// What is to be changed, in the order of the texts, the orchestra's before the score's. The
    /// range is the name alone.
    qsizetype count() const { return qsizetype(m_places.size()); }
    PiecePlace place(qsizetype index) const { return m_places[size_t(index)].name; }
    /// Notes whose instrument a macro or an expression tells, so that it may be this one; they stay
    /// as they are. 0 where something else is renamed.
    int hiddenNotes() const { return m_hiddenNotes; }

    /// Why it cannot get another name, in a sentence that can be shown; "" where it can.
    QString obstacle() const;
    /// Why it cannot be called \a name: there is an obstacle, the language does not allow it, it is
    /// the name that it has, or it is taken. "" where it can.
    QString refusal(const QString &name) const;
    /// What is to be changed for the name \a name, which is not refused; in the order of place().
    QList<RenameEdit> editsFor(const QString &name) const;

private:
    struct Source
    {
        const PieceText *text;
        PieceWordReader reader;
    };
    struct Place
    {
        PiecePlace name;
        PiecePlace literal; ///< with quotes, sign and fraction
        WordForm form = WordForm::Plain;
    };
    /// A line that is the reason of a refusal.
    struct Line
    {
        DocumentRole role = DocumentRole::Csd;
        int line = 0; ///< 0 for none
    };
    /// The first lines with uses that allow only some names.
    struct FirstLines
    {
        Line ofMacro;    ///< a local of that name within a macro's text
        Line ofName;     ///< where no number can be
        Line ofNumber;   ///< where no name can be
        Line ofFraction; ///< a number with a fraction
        Line ofSign;     ///< a number with a sign, outside of the score
    };

    void addSource(const PieceText *text, WordSections sections);
    void readWords(Source &source);
    void readWord(const PieceWord &word, const Source &source);
    void addPlace(const PieceWord &word, const Source &source);
    void noteForm(const PieceWord &word, QByteArrayView literal, Line line);
    bool takesName(const PieceWord &word, Line line) const;
    QString takenReason(const QString &name) const;
    QString formReason(const QByteArray &name) const;
    RenameEdit editFor(const Place &place, const QString &name, bool changesForm) const;
    static QString sentenceOf(Line line, const QString &sentence);

    const Piece &m_piece;
    const PieceSymbol m_symbol;
    std::deque<Source> m_sources; ///< that are still to be read
    int m_linesRead = 0;
    int m_linesInAll = 0;
    std::vector<Place> m_places;
    QHash<QByteArray, Line> m_taken;
    FirstLines m_firstLines;
    int m_definitions = 0;
    int m_hiddenNotes = 0;
};

} // namespace ardiphon
