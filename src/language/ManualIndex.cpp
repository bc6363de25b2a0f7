#include "language/ManualIndex.h"

#include "language/HelpWord.h"
#include "language/ManualText.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>

namespace ardiphon {

namespace {

struct NamedPage
{
    QLatin1String name;
    QLatin1String title; ///< in the manual's contents
};

// Far more than a manual has; the folder of a start page may hold any other files too.
constexpr qint64 mostBytesOfPages = qint64{128} * 1024 * 1024;

const QLatin1String tagChapter("Unified File Format for Orchestras and Scores");
const QLatin1String statementChapter("Score Statements");

// Keywords that are no names of the language.
constexpr std::array<NamedPage, 4> fixedKeywords{
    {{QLatin1String("Gen Routines"), QLatin1String("GEN Routines")},
     {QLatin1String("csoundav"), QLatin1String("Front Ends")},
     {QLatin1String("csound, command line flags"), QLatin1String("Csound command line")},
     {QLatin1String("directCsound, command-line flags"), QLatin1String("Csound command line")}}};

// Names that the manual explains under another one.
constexpr std::array<NamedPage, 9> otherSpellings{
    {{QLatin1String("#endif"), QLatin1String("#ifdef")},
     {QLatin1String("then"), QLatin1String("if")},
     {QLatin1String("fi"), QLatin1String("endif")},
     {QLatin1String("ithen"), QLatin1String("if")},
     {QLatin1String("kthen"), QLatin1String("if")},
     {QLatin1String("enduntil"), QLatin1String("until")},
     {QLatin1String("cingoto"), QLatin1String("cngoto")},
     {QLatin1String("cnkgoto"), QLatin1String("cngoto")},
     {QLatin1String("slicearray_i"), QLatin1String("slicearray")}}};

// Names that share a beginning and a chapter, which does not list them all.
constexpr std::array<NamedPage, 3> families{
    {{QLatin1String("py"), QLatin1String("Python Opcodes")},
     {QLatin1String("la_"), QLatin1String("Linear Algebra Opcodes")},
     {QLatin1String("$M_"), QLatin1String("Orchestra Macros")}}};

QString titleOf(const auto &table, const QString &name)
{
    const auto found = std::find_if(table.begin(), table.end(),
                                    [&](const NamedPage &page) { return page.name == name; });
    return found == table.end() ? QString() : QString(found->title);
}

QString fileOf(const QString &target) { return target.section(u'#', 0, 0); }

/// "a" for "a Statement (or Advance Statement)", "" for a title of another kind.
QString statementOf(const QString &title)
{
    static const QLatin1String mark(" Statement");
    const bool statement = title.mid(1, mark.size()) == mark &&
                           (title.size() == 1 + mark.size() || title[1 + mark.size()] == u' ');
    return statement ? title.left(1) : QString();
}

} // namespace

ManualIndex::ManualIndex(const QString &startPage)
    : m_startPage(startPage), m_folder(QFileInfo(startPage).absolutePath())
{
}

std::optional<QUrl> ManualIndex::find(const QString &keyword)
{
    readContents();
    return urlOf(targetOf(keyword));
}

void ManualIndex::readContents()
{
    if (m_contentsRead)
        return;
    m_contentsRead = true;
    if (!isManualPage(m_startPage))
        return;
    const QByteArray contents = readManualPage(m_startPage);
    if (contents.isEmpty())
        return;
    const QStringList files = QDir(m_folder).entryList(
        {QStringLiteral("*.html"), QStringLiteral("*.htm")}, QDir::Files | QDir::Readable);
    m_files = QSet<QString>(files.begin(), files.end());
    for (const ManualLink &link : manualLinks(contents))
        addLink(link.title, link.target);
}

void ManualIndex::addLink(const QString &title, const QString &target)
{
    if (!m_files.contains(fileOf(target)))
        return;
    // A page that serves two names is linked once under each: the first of a title is its own.
    if (!m_titles.contains(title))
        m_titles.insert(title, target);
    if (!m_titlesInLowerCase.contains(title.toLower()))
        m_titlesInLowerCase.insert(title.toLower(), target);
    const QString statement = statementOf(title);
    if (!statement.isEmpty())
        m_statements.insert(statement, target);
}

void ManualIndex::readSynopses()
{
    if (m_synopsesRead)
        return;
    m_synopsesRead = true;
    QStringList files(m_files.begin(), m_files.end());
    files.sort(); // of two pages with the same syntax always the same one is found
    qint64 bytesRead = 0;
    for (const QString &file : files) {
        const QByteArray page = readManualPage(m_folder + u'/' + file);
        bytesRead += page.size();
        if (bytesRead > mostBytesOfPages)
            return;
        for (const QString &name : manualSynopses(page))
            if (!m_synopses.contains(name))
                m_synopses.insert(name, file);
    }
}

std::optional<QUrl> ManualIndex::urlOf(const QString &target) const
{
    if (!m_files.contains(fileOf(target)))
        return std::nullopt;
    QUrl url = QUrl::fromLocalFile(m_folder + u'/' + fileOf(target));
    url.setFragment(target.contains(u'#') ? target.section(u'#', 1) : QString());
    return url;
}

QString ManualIndex::targetOf(const QString &keyword)
{
    if (m_files.isEmpty() || keyword.isEmpty())
        return {};
    const QString fixed = titleOf(fixedKeywords, keyword);
    if (!fixed.isEmpty())
        return m_titles.value(fixed);
    if (keyword.endsWith(ScoreStatementSuffix))
        return targetOfStatement(keyword.chopped(ScoreStatementSuffix.size()));
    if (keyword.startsWith(u'<'))
        return targetOfTag(keyword);
    return targetOfName(keyword);
}

QString ManualIndex::targetOfName(const QString &name)
{
    if (m_titles.contains(name))
        return m_titles.value(name);
    if (m_files.contains(name + QStringLiteral(".html")))
        return name + QStringLiteral(".html");
    const QString other = titleOf(otherSpellings, name);
    if (!other.isEmpty() && other != name)
        return targetOfName(other);
    readSynopses();
    if (m_synopses.contains(name))
        return m_synopses.value(name);
    const QString anyCase = m_titlesInLowerCase.value(name.toLower());
    return anyCase.isEmpty() ? targetOfFamily(name) : anyCase;
}

QString ManualIndex::targetOfTag(const QString &tag) const
{
    const QString chapter = m_titles.value(tagChapter);
    QString name = tag.mid(tag.startsWith(QLatin1String("</")) ? 2 : 1);
    name.chop(name.endsWith(u'>') ? 1 : 0);
    const QString file = fileOf(chapter);
    if (file.isEmpty())
        return {};
    const QString anchor = manualTagAnchor(readManualPage(m_folder + u'/' + file), name);
    return anchor.isEmpty() ? chapter : file + u'#' + anchor;
}

QString ManualIndex::targetOfStatement(const QString &statement) const
{
    return m_statements.value(statement, m_titles.value(statementChapter));
}

QString ManualIndex::targetOfFamily(const QString &name) const
{
    for (const NamedPage &family : families)
        if (name.startsWith(family.name))
            return m_titles.value(family.title);
    return {};
}

} // namespace ardiphon
