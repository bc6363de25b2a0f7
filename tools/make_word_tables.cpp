// Makes the three word tables that the program reads from their readable sources:
//
//   make_word_tables OUTPUT-FOLDER CSOUND-VERSION CSD-WORDS SCORE-WORDS OPCODES...
//
// An opcode source has a line an opcode, "name | description | parameters"; a word source has a
// line a word. Empty lines, and lines that begin with ";", are comments. What cannot become a
// record is refused with its file, line and reason, and then nothing is written.

#include <algorithm>
#include <array>
#include <fstream>
#include <iostream>
#include <map>
#include <string>
#include <vector>

namespace {

struct Place
{
    std::string file;
    int line = 0;
};

struct Field
{
    const char *name;
    std::size_t length;
};

constexpr std::array<Field, 3> fields{{{"name", 50}, {"description", 150}, {"parameters", 230}}};
constexpr const char *separator = " | ";

using Opcode = std::array<std::string, fields.size()>;

class Tables
{
public:
    void readOpcodes(const std::string &path)
    {
        forEachLine(
            path, [this](const Place &place, const std::string &line) { addOpcode(place, line); });
    }

    std::vector<std::string> readWords(const std::string &path)
    {
        std::vector<std::string> words;
        forEachLine(path, [&](const Place &place, const std::string &line) {
            if (line.find_first_of(" ,\"") != std::string::npos)
                refuse(place, "more than one word");
            else if (std::find(words.begin(), words.end(), line) != words.end())
                refuse(place, "\"" + line + "\" is here for the second time");
            else
                words.push_back(line);
        });
        return words;
    }

    bool good() const { return m_good; }
    const std::map<std::string, Opcode> &opcodes() const { return m_opcodes; }

private:
    template <typename Use>
    void forEachLine(const std::string &path, Use use)
    {
        std::ifstream in(path);
        if (!in)
            refuse({path, 0}, "cannot be read");
        Place place{path, 0};
        for (std::string line; std::getline(in, line);) {
            ++place.line;
            if (line.empty() || line[0] == ';')
                continue;
            if (std::any_of(line.begin(), line.end(), [](char c) { return c < ' ' || c > '~'; }))
                refuse(place, "a character that is not printable ASCII");
            else
                use(place, line);
        }
    }

    void addOpcode(const Place &place, const std::string &line)
    {
        Opcode opcode;
        std::size_t start = 0;
        for (std::size_t i = 0; i < fields.size(); ++i) {
            const bool last = i + 1 == fields.size();
            const std::size_t end = last ? line.size() : line.find(separator, start);
            if (end == std::string::npos)
                return refuse(place, "fewer than three fields");
            opcode[i] = line.substr(start, end - start);
            if (opcode[i].find_first_not_of(' ') == std::string::npos)
                return refuse(place, std::string("empty ") + fields[i].name);
            if (opcode[i].size() > fields[i].length)
                return refuse(place, std::string(fields[i].name) + " of " +
                                         std::to_string(opcode[i].size()) + " characters, " +
                                         std::to_string(fields[i].length) + " are allowed");
            start = end + std::string(separator).size();
        }
        if (opcode[2].find('|') != std::string::npos)
            return refuse(place, "more than three fields");
        if (!m_opcodes.emplace(opcode[0], opcode).second)
            refuse(place, "\"" + opcode[0] + "\" is in the table already");
    }

    void refuse(const Place &place, const std::string &reason)
    {
        std::cerr << place.file << ':' << place.line << ": " << reason << '\n';
        m_good = false;
    }

    // Ordered by the bytes of the name, so that names with the same first character follow one
    // another, in ascending order of that character's code.
    std::map<std::string, Opcode> m_opcodes;
    bool m_good = true;
};

std::string record(const Opcode &opcode)
{
    std::string bytes;
    for (std::size_t i = 0; i < fields.size(); ++i) {
        bytes += opcode[i];
        bytes.append(fields[i].length - opcode[i].size(), ' ');
    }
    return bytes;
}

/// The last record: it carries the table's version, under a name that no one types and that sorts
/// behind every other.
Opcode versionRecord(const std::string &csoundVersion, std::size_t opcodes)
{
    return {"~version", "The version of this table.",
            "Csound " + csoundVersion + ", " + std::to_string(opcodes) + " words"};
}

bool write(const std::string &path, const std::string &bytes)
{
    std::ofstream out(path, std::ios::binary);
    out << bytes << std::flush;
    if (!out)
        std::cerr << path << ": cannot be written\n";
    return bool(out);
}

std::string lines(const std::vector<std::string> &words)
{
    std::string text;
    for (const std::string &word : words)
        text += word + '\n';
    return text;
}

} // namespace

int main(int argc, char *argv[])
{
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() < 5) {
        std::cerr << "usage: make_word_tables FOLDER VERSION CSD-WORDS SCORE-WORDS OPCODES...\n";
        return 2;
    }
    Tables tables;
    const std::vector<std::string> csdWords = tables.readWords(arguments[2]);
    std::vector<std::string> scoreWords = tables.readWords(arguments[3]);
    std::for_each(arguments.begin() + 4, arguments.end(),
                  [&](const std::string &path) { tables.readOpcodes(path); });
    if (!tables.good())
        return 1;

    std::string records;
    for (const auto &[name, opcode] : tables.opcodes())
        records += record(opcode);
    records += record(versionRecord(arguments[1], tables.opcodes().size()));

    // The program leaves the last word of this table out.
    scoreWords.push_back("end-of-table");

    const std::string &folder = arguments[0];
    const bool written = write(folder + "/opcode.txt", records) &&
                         write(folder + "/csd.txt", lines(csdWords)) &&
                         write(folder + "/score.txt", lines(scoreWords));
    return written ? 0 : 1;
}
