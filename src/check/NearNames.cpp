#include "check/NearNames.h"

#include <algorithm>
#include <cstdlib>
#include <tuple>
#include <vector>

namespace ardiphon {

int nameDistance(QStringView first, QStringView second, int most)
{
    if (std::abs(first.size() - second.size()) > most)
        return most + 1;
    const auto isSame = [&](qsizetype i, qsizetype j) {
        return first[i].toCaseFolded() == second[j].toCaseFolded();
    };
    // The rows of the table of distances of their beginnings: this one and the two before it.
    std::vector<int> before(second.size() + 1);
    std::vector<int> last(second.size() + 1);
    std::vector<int> row(second.size() + 1);
    for (qsizetype j = 0; j <= second.size(); ++j)
        last[j] = int(j);
    for (qsizetype i = 1; i <= first.size(); ++i) {
        row[0] = int(i);
        for (qsizetype j = 1; j <= second.size(); ++j) {
            row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + !isSame(i - 1, j - 1)});
            if (i > 1 && j > 1 && isSame(i - 1, j - 2) && isSame(i - 2, j - 1))
                row[j] = std::min(row[j], before[j - 2] + 1);
        }
        if (*std::min_element(row.begin(), row.end()) > most)
            return most + 1;
        before.swap(last);
        last.swap(row);
    }
    return std::min(last.back(), most + 1);
}

namespace {

bool hasDigits(const QString &name)
{
    return std::any_of(name.begin(), name.end(), [](QChar c) { return c.isDigit(); });
}

} // namespace

QStringList nearNames(const QString &written, const QStringList &names, int most)
{
    struct Found
    {
        int distance;
        bool beginsOtherwise;
        bool hasDigits; ///< a rarer form of another
        QString name;
    };
    std::vector<Found> found;
    if (written.isEmpty())
        return {};
    const int farthest = std::max(1, int(written.size()) / 3);
    for (const QString &name : names) {
        const int distance = nameDistance(written, name, farthest);
        if (!name.isEmpty() && distance <= farthest)
            found.push_back({distance, name.front() != written.front(),
                             hasDigits(name) && !hasDigits(written), name});
    }
    std::stable_sort(found.begin(), found.end(), [](const Found &one, const Found &other) {
        return std::tuple(one.distance, one.beginsOtherwise, one.hasDigits) <
               std::tuple(other.distance, other.beginsOtherwise, other.hasDigits);
    });
    QStringList result;
    for (const Found &each : found) {
        if (result.size() < most && !result.contains(each.name))
            result.append(each.name);
    }
    return result;
}

} // namespace ardiphon
