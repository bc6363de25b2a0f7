#include "compile/LaunchChecks.h"

#include "app/ConfigurationBlock.h"

namespace ardiphon {

namespace {

LaunchDecision refuse(const QString &words, const QString &title = ProgramTitle)
{
    return {false, Message{words, title}};
}

/// Refuses, with a message that \a document, such as "File", has no name that \a compiler can use.
LaunchDecision refuseUnnamed(const QString &document, const Compiler &compiler)
{
    return refuse(QStringLiteral("No name associated to %1!\r\nYou must save it with a valid name "
                                 "before start %2 (CTRL+S)")
                      .arg(document, compiler.name));
}

LaunchDecision refuseChanged(const QString &document, const Compiler &compiler)
{
    return refuse(QStringLiteral("%1 has changed!\r\nYou must save it before start %2 (CTRL+S)")
                      .arg(document, compiler.name));
}

} // namespace

const Compiler CSoundCompiler{
    &ConfigurationBlock::FileCSound, QStringLiteral("CSound compiler"),
    QStringLiteral("Cannot find CSound.exe!\r\nSelect File->Settings->Csound.exe!"), true};
const Compiler WinsoundCompiler{
    &ConfigurationBlock::FileWinsound, QStringLiteral("Winsound compiler"),
    QStringLiteral("Cannot find Winsound.exe!\r\nSelect File->Settings->Winsound.exe!"), true};
const Compiler CSoundAVCompiler{&ConfigurationBlock::FileDirectCSound, QStringLiteral("CSoundAV"),
                                QStringLiteral("Cannot find CSoundAV.exe or DirectCSound.exe!\r\n"
                                               "Select File->Settings->CSoundAV.exe!"),
                                false};

bool csOptionsNameLog(const QString &text)
{
    const qsizetype start = text.indexOf(QLatin1String("<CsOptions>"));
    const qsizetype end = start < 0 ? -1 : text.indexOf(QLatin1String("</CsOptions>"), start);
    return end >= 0 && QStringView(text).mid(start, end - start).contains(QLatin1String("-O"));
}

LaunchDecision checkCsdLaunch(const Compiler &compiler, const ConfigurationBlock &config,
                              bool modified, const QString &text)
{
    const QString document = QStringLiteral("File");
    if (config.CSDFileName.isEmpty() || config.CSDFileName == QLatin1String("[Untitled]"))
        return refuseUnnamed(document, compiler);
    if (modified)
        return refuseChanged(document, compiler);
    if (compiler.needsText && text.isEmpty())
        return {};
    if ((config.*compiler.path).isEmpty())
        return refuse(compiler.missing);
    return {true, std::nullopt};
}

LaunchDecision checkCsdCompile(const ConfigurationBlock &config, bool modified, const QString &text)
{
    LaunchDecision decision = checkCsdLaunch(CSoundCompiler, config, modified, text);
    if (decision.open && csOptionsNameLog(text))
        return refuse(QStringLiteral("Don't use '-O' flag in Ardiphon!"), QStringLiteral("Error"));
    return decision;
}

LaunchDecision checkProjectLaunch(const Compiler &compiler, const ConfigurationBlock &config,
                                  const LaunchedHalf &orchestra, const LaunchedHalf &score)
{
    const QString orchestraFile = QStringLiteral("File Orchestra");
    const QString scoreFile = QStringLiteral("File Score");
    if (config.OrchestraFileName.isEmpty())
        return refuseUnnamed(orchestraFile, compiler);
    if (config.ScoreFileName.isEmpty())
        return refuseUnnamed(scoreFile, compiler);
    if (orchestra.modified)
        return refuseChanged(orchestraFile, compiler);
    if (score.modified)
        return refuseChanged(scoreFile, compiler);
    if ((config.*compiler.path).isEmpty())
        return refuse(compiler.missing);
    if (compiler.needsText && orchestra.empty && score.empty)
        return {};
    return {true, std::nullopt};
}

} // namespace ardiphon
