#pragma once

#include "piece/ScoreInput.h"
#include "piece/ScoreMacros.h"

#include <functional>
#include <optional>

namespace ardiphon {

/// The text of the file that an #include names, with lines that end in LF, or nothing where there
/// is none.
using ScoreIncludes = std::function<std::optional<QByteArray>(QByteArrayView name)>;

/// What # and $ mean in a score: the macros that are defined, the branches that count, the files
/// and the texts of macros that are put into the input.
class ScorePreprocessor
{
public:
    /// \a input is the score's, which stays where it is. Without \a includes there are no files.
    ScorePreprocessor(ScoreInput &input, ScoreIncludes includes)
        : m_input(input), m_includes(std::move(includes))
    {
    }
    ScorePreprocessor(const ScorePreprocessor &) = delete;
    ScorePreprocessor &operator=(const ScorePreprocessor &) = delete;

    void restart();

    /// Reads the directive behind a #. False where it is none: the # stands for itself.
    bool readDirective();
    /// Puts the text of the macro behind a $ in. False where there is none: the $ stands for
    /// itself.
    bool expand();
    /// The name of a macro that comes next; empty where there is none. Valid until more is read.
    QByteArrayView readName();

    /// Whether a macro's text or a branch that does not count comes: readLine() is to read it.
    bool isBetween() const { return m_mode != Mode::Code; }
    /// Reads what comes up to the end of a line at most.
    void readLine();

    /// Makes \a name the macro that counts the turns of a loop from 0; an empty name is none.
    void beginCount(const QByteArray &name);
    void setCount(const QByteArray &name, int turn);

    /// Whether text is left out, as a macro calls itself or a file includes itself.
    bool isTruncated() const { return m_isTruncated; }
    /// Whether there are too many macros, or too many calls without an end, to go on.
    bool isFull() const { return m_isFull; }

private:
    enum class Mode { Code, Skipped, MacroText };

    void readDefine();
    void readArgumentNames();
    bool goToDefinition();
    void readDefinition();
    void define(const QByteArray &name, const ScoreMacro &macro);
    void readSkipped();
    void skipBranch();
    void readInclude();
    QByteArrayList readArguments(qsizetype count);
    void expandArgument();
    void put(const QByteArray &text, int macro = 0, const QByteArrayList &arguments = {});

    ScoreInput &m_input;
    const ScoreIncludes m_includes;
    ScoreMacros m_macros;

    Mode m_mode = Mode::Code;
    int m_skippedDepth = 0; ///< of #ifdef within the branch that does not count
    QByteArray m_definedName;
    ScoreMacro m_defined;
    QByteArrayList m_definedArguments;
    int m_macroNumber = 0;
    int m_refused = 0; ///< texts that were too deep within each other
    bool m_isTruncated = false;
    bool m_isFull = false;
};

} // namespace ardiphon
