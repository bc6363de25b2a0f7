#include "piece/OrchestraWords.h"

#include <algorithm>
#include <array>
#include <utility>

namespace ardiphon {

namespace {

template <size_t Size>
bool isOneOf(QByteArrayView word, const std::array<QByteArrayView, Size> &words)
{
    return std::find(words.begin(), words.end(), word) != words.end();
}

constexpr std::pair<QByteArrayView, BlockWord> BlockWords[] = {
    {"if", {LandmarkKind::BlockBegin, BlockFamily::Condition}},
    {"elseif", {LandmarkKind::BlockMiddle, BlockFamily::Condition}},
    {"else", {LandmarkKind::BlockMiddle, BlockFamily::Condition}},
    {"endif", {LandmarkKind::BlockEnd, BlockFamily::Condition}},
    {"fi", {LandmarkKind::BlockEnd, BlockFamily::Condition}},
    {"while", {LandmarkKind::BlockBegin, BlockFamily::Loop}},
    {"until", {LandmarkKind::BlockBegin, BlockFamily::Loop}},
    {"for", {LandmarkKind::BlockBegin, BlockFamily::Loop}},
    {"od", {LandmarkKind::BlockEnd, BlockFamily::Loop}},
    {"enduntil", {LandmarkKind::BlockEnd, BlockFamily::Loop}},
    {"switch", {LandmarkKind::BlockBegin, BlockFamily::Switch}},
    {"case", {LandmarkKind::BlockMiddle, BlockFamily::Switch}},
    {"default", {LandmarkKind::BlockMiddle, BlockFamily::Switch}},
    {"endsw", {LandmarkKind::BlockEnd, BlockFamily::Switch}},
};

constexpr std::pair<QByteArrayView, ChannelUse> ChannelOpcodes[] = {
    {"chn_k", ChannelUse::Declares},     {"chn_a", ChannelUse::Declares},
    {"chn_S", ChannelUse::Declares},     {"chnexport", ChannelUse::Declares},
    {"chnparams", ChannelUse::Declares}, {"chnget", ChannelUse::Reads},
    {"chngeti", ChannelUse::Reads},      {"chngetk", ChannelUse::Reads},
    {"chngeta", ChannelUse::Reads},      {"chngets", ChannelUse::Reads},
    {"chngetks", ChannelUse::Reads},     {"chnset", ChannelUse::Writes},
    {"chnseti", ChannelUse::Writes},     {"chnsetk", ChannelUse::Writes},
    {"chnseta", ChannelUse::Writes},     {"chnsets", ChannelUse::Writes},
    {"chnsetks", ChannelUse::Writes},    {"chnmix", ChannelUse::Writes},
    {"chnclear", ChannelUse::Writes},    {"invalue", ChannelUse::Reads},
    {"outvalue", ChannelUse::Writes},
};

constexpr std::array<QByteArrayView, 7> HeaderNames = {"sr",       "kr",    "ksmps", "nchnls",
                                                       "nchnls_i", "0dbfs", "A4"};
constexpr std::array<QByteArrayView, 4> TableOpcodes = {"ftgen", "ftgenonce", "ftgentmp", "vftgen"};
constexpr std::array<QByteArrayView, 16> FileEndings = {
    ".wav", ".aif", ".aiff", ".flac", ".ogg", ".mp3",  ".sf2", ".raw",
    ".pvx", ".het", ".ats",  ".lpc",  ".sco", ".sdif", ".txt", ".mid",
};

template <size_t Size, typename Value>
std::optional<Value> valueOf(QByteArrayView word,
                             const std::pair<QByteArrayView, Value> (&table)[Size])
{
    for (const auto &[name, value] : table) {
        if (name == word)
            return value;
    }
    return std::nullopt;
}

} // namespace

std::optional<BlockWord> blockWord(QByteArrayView word) { return valueOf(word, BlockWords); }

bool isClosingWord(QByteArrayView word)
{
    const auto block = blockWord(word);
    return word == "endin" || word == "endop" || (block && block->kind != LandmarkKind::BlockBegin);
}

bool beginsClosingWord(QByteArrayView letters)
{
    const auto begins = [&](const auto &word) {
        return word.second.kind != LandmarkKind::BlockBegin && word.first.startsWith(letters);
    };
    return QByteArrayView("endin").startsWith(letters) ||
           QByteArrayView("endop").startsWith(letters) ||
           std::any_of(std::begin(BlockWords), std::end(BlockWords), begins);
}

std::optional<ChannelUse> channelUse(QByteArrayView opcode)
{
    if (!opcode.startsWith("chn") && !opcode.endsWith("value"))
        return std::nullopt;
    return valueOf(opcode, ChannelOpcodes);
}

bool isHeaderName(QByteArrayView name) { return isOneOf(name, HeaderNames); }

bool makesTable(QByteArrayView opcode) { return isOneOf(opcode, TableOpcodes); }

char variableType(QByteArrayView name)
{
    if (pFieldNumber(name) > 0)
        return 0;
    const QByteArrayView local = name.startsWith('g') ? name.sliced(1) : name;
    return !local.isEmpty() && QByteArrayView("ikafwSb").contains(local[0]) ? local[0] : 0;
}

int pFieldNumber(QByteArrayView name)
{
    if (name.size() < 2 || name.size() > 5 || name[0] != 'p')
        return 0;
    int number = 0;
    for (const char c : name.sliced(1)) {
        if (c < '0' || c > '9')
            return 0;
        number = number * 10 + (c - '0');
    }
    return number;
}

bool namesFile(QByteArrayView text)
{
    const qsizetype dot = text.lastIndexOf('.');
    if (dot < 1)
        return false;
    const QByteArray ending = text.sliced(dot).toByteArray().toLower();
    return isOneOf(ending, FileEndings);
}

} // namespace ardiphon
