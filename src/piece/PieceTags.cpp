#include "piece/PieceTags.h"

#include <utility>

namespace ardiphon {

namespace {

constexpr std::pair<QByteArrayView, PieceSection> Sections[] = {
    {"CsoundSynthesizer", PieceSection::Outside},
    {"CsOptions", PieceSection::Options},
    {"CsInstruments", PieceSection::Orchestra},
    {"CsScore", PieceSection::Score},
    {"CsFile", PieceSection::File},
    {"CsFileB", PieceSection::File},
    {"CsMidifile", PieceSection::File},
    {"CsMidifileB", PieceSection::File},
    {"CsSampleB", PieceSection::File},
    {"CsFileC", PieceSection::File},
    {"CsLicence", PieceSection::Licence},
    {"CsLicense", PieceSection::Licence},
    {"CsShortLicence", PieceSection::Licence},
    {"CsShortLicense", PieceSection::Licence},
    {"CsVersion", PieceSection::Other},
    {"CsArtist", PieceSection::Other},
    {"CsExtra", PieceSection::Other},
    {"CsHtml5", PieceSection::Other},
    {"CsCabbage", PieceSection::Other},
};

} // namespace

std::optional<PieceTag> pieceTag(QByteArrayView line)
{
    qsizetype at = 0;
    while (at < line.size() && (line[at] == ' ' || line[at] == '\t'))
        ++at;
    if (at >= line.size() || line[at] != '<')
        return std::nullopt;
    PieceTag tag{PieceSection::Outside};
    tag.ends = ++at < line.size() && line[at] == '/';
    tag.start = int(at) + (tag.ends ? 1 : 0);
    qsizetype end = tag.start;
    while (end < line.size() && line[end] != '>' && line[end] != ' ')
        ++end;
    tag.length = int(end) - tag.start;
    for (const auto &[name, section] : Sections) {
        if (end < line.size() && name == line.sliced(tag.start, tag.length)) {
            tag.section = tag.ends ? PieceSection::Outside : section;
            return tag;
        }
    }
    return std::nullopt;
}

} // namespace ardiphon
