#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QHash>

#include <vector>

namespace ardiphon {

/// What one #define says, or the counter of a loop.
struct ScoreMacro
{
    QByteArray text;
    int argumentCount = 0;
    int number = 0; ///< another one for each #define that has arguments
    /// Where it was defined: a place that is passed again, as in a loop, changes its macro.
    qint64 place = 0;
};

/// The macros that are defined at a place in a score. A name may be defined several times; the last
/// counts, until it is no longer defined.
class ScoreMacros
{
public:
    /// Gives false, and defines nothing, once there are too many or their texts are too long.
    bool define(const QByteArray &name, const ScoreMacro &macro);
    void undefine(QByteArrayView name);
    /// Changes the text of the last one, if there is one.
    void setText(const QByteArray &name, const QByteArray &text);
    /// The last one, until the next change, or nullptr.
    const ScoreMacro *find(QByteArrayView name) const;
    void clear();

private:
    QHash<QByteArray, std::vector<ScoreMacro>> m_macros;
    qsizetype m_count = 0;
    qsizetype m_bytes = 0;
};

} // namespace ardiphon
