#include "documents/ui/ProjectConversion.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "documents/Conversion.h"
#include "documents/FileChooser.h"
#include "documents/TextFile.h"
#include "documents/ui/HalfDocument.h"
#include "language/editor/LEditOCX.h"

namespace ardiphon {

namespace {

const QString CsdFilter = QStringLiteral("Csound CSD (*.csd)|*.csd|All Files (*.*)|*.*");

/// Makes \a text the text of \a half, under a name that has no file until the user saves.
void replaceText(HalfDocument &half, const QString &text, const QString &csdPath, double fontSize)
{
    half.editor().SetFontSize(fontSize);
    half.editor().SetText(text);
    half.rename(pathWithExtension(csdPath, half.half().extension));
}

} // namespace

ProjectConversion::ProjectConversion(HalfDocument &orchestra, HalfDocument &score,
                                     ProgramContext &program, FileChooser &files, QObject *parent)
    : QObject(parent), m_orchestra(orchestra), m_score(score), m_program(program), m_files(files)
{
}

void ProjectConversion::ExportToCsd()
{
    const QString orchestra = m_orchestra.editor().Text();
    const QString score = m_score.editor().Text();
    if (orchestra.isEmpty() || score.isEmpty()) {
        m_program.dialogs.message({QStringLiteral("No available Orchestra or Score to convert!")});
        return;
    }
    const auto path = m_files.save(QStringLiteral("Save CSD File As ... (*.CSD)"), CsdFilter,
                                   proposedName(m_orchestra.fileName(), QStringLiteral(".csd")));
    if (!path)
        return;
    if (const auto written = writeTextFile(*path, csdText(orchestra, score)); !written)
        m_program.dialogs.message({notSavedText(*path, written.failure())});
    m_orchestra.editor().setFocus();
}

/// Where only the score's tags are missing, the orchestra has been replaced already and stays so.
void ProjectConversion::ImportCsd()
{
    const QString title = QStringLiteral("Import CSD File");
    if (m_orchestra.askToSave(title) == Answer::Cancel ||
        m_score.askToSave(title) == Answer::Cancel)
        return;
    const auto path =
        m_files.open(QStringLiteral("Open CSound Unified File Format (*.CSD)"), CsdFilter);
    if (!path)
        return;
    const auto read = readTextFile(*path);
    if (!read)
        m_program.dialogs.message({notOpenedText(*path, read.failure())});
    const QString csd = read ? *read : QString();
    const auto orchestra = orchestraOfCsd(csd);
    if (orchestra)
        replaceText(m_orchestra, *orchestra, *path, m_program.config.FontSize);
    const auto score = scoreOfCsd(csd);
    if (orchestra && score)
        replaceText(m_score, *score, *path, m_program.config.FontSize);
    else
        m_program.dialogs.message(conversionError());
}

} // namespace ardiphon
