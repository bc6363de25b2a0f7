#pragma once

#include <QFile>
#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <array>

namespace ardiphon {

/// One record of `opcode.txt`, each field with its padding blanks.
struct OpcodeEntry
{
    QString Name;
    QString Description;
    QString Parameters;
};

/// The program's knowledge of the language: the three word tables beside the executable.
///
/// `opcode.txt` is a sequence of 430-byte records (name 50, description 150, parameters 230, one
/// byte per character, padded with blanks), grouped by first character in ascending order; its last
/// record has the table's version. `csd.txt` and `score.txt` have words separated by commas or line
/// ends.
class WordTables
{
public:
    static constexpr int NameLength = 50;
    static constexpr int DescriptionLength = 150;
    static constexpr int ParametersLength = 230;
    static constexpr int RecordLength = NameLength + DescriptionLength + ParametersLength;

    /// Reads the three tables of \a folder. `opcode.txt` stays open, so that a record can be read
    /// from it when it is needed, and is created empty when it does not exist. A missing or broken
    /// file gives an empty table, never a failure.
    void LoadWordTables(const QString &folder);

    /// Sets `LookupFirst` and `LookupLast` to the records among which \a word is to be searched.
    /// The range ends before the group of the very next character code; where that code starts no
    /// opcode, it runs to the end of the table. An empty \a word changes nothing.
    void FindOpcodeRange(QStringView word);

    /// The first record from `LookupFirst` to `LookupLast` whose name is exactly \a word, or 0.
    int FindInRange(const QString &word) const;

    /// The first record of the whole table whose name is exactly \a word, or 0.
    int FindInTable(const QString &word) const;

    /// Reads record \a number (from 1) into `OpcodeRecord`. False, with the record as it was, when
    /// the file has no such record or is closed.
    bool ReadOpcodeRecord(int number);

    /// Closes `opcode.txt`: no record can be read any more.
    void CloseOpcodeFile() { m_opcodeFile.close(); }

    bool IsCsdWord(const QString &word) const { return CsdWords.indexOf(word, 1) > 0; }
    bool IsScoreWord(const QString &word) const { return ScoreWords.indexOf(word, 1) > 0; }

    QStringList OpcodeNames; ///< indices 1 to `OpcodeCount`; index 0 is ""
    int OpcodeCount = 0;     ///< the version record included
    OpcodeEntry OpcodeRecord;
    QStringList CsdWords; ///< indices from 1, in the order in which they are offered; index 0 is ""
    QStringList ScoreWords; ///< indices from 1; index 0 is ""

    /// Entry c is the first record whose name begins with the character of code c, or 0.
    std::array<int, 301> FirstLetterIndex{};
    int LookupFirst = 0;
    int LookupLast = 0;
    QString OpcodeHelpVersion; ///< with its padding blanks

private:
    void readOpcodeNames();
    void buildFirstLetterIndex();
    int firstRecordNamed(const QString &word, int first, int last) const;

    QFile m_opcodeFile;
    QHash<QString, QList<int>> m_recordsByName; ///< ascending; the same result as a scan
};

} // namespace ardiphon
