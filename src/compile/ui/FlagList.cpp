#include "compile/ui/FlagList.h"

#include "app/ConfigurationBlock.h"
#include "compile/ui/CompileContext.h"
#include "compile/ui/FlagCombo.h"
#include "language/HelpWord.h"

#include <QPushButton>

namespace ardiphon {

namespace {

const QString AlreadyThere = QStringLiteral("Flag already inserted!");

QPushButton *newButton(const char *name, const char *caption, QWidget *parent)
{
    auto *button = new QPushButton(QLatin1String(caption), parent);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    return button;
}

} // namespace

const FlagListKind &compilerFlags()
{
    static const FlagListKind kind{QStringLiteral("CSFlags.dat"),
                                   FlagLayout::Tagged,
                                   QStringLiteral("-W"),
                                   "Command3",
                                   "CommandFlags",
                                   {AlreadyThere, ProgramTitle, MessageIcon::None},
                                   FlagsKeyword};
    return kind;
}

const FlagListKind &playerFlags()
{
    static const FlagListKind kind{
        QStringLiteral("DSFlags.dat"),
        FlagLayout::Padded,
        QString(),
        "Command4",
        "Command5",
        {AlreadyThere, QStringLiteral("Error"), MessageIcon::Information},
        QStringLiteral("directCsound, command-line flags")};
    return kind;
}

FlagList::FlagList(const FlagListKind &kind, const CompileContext &context, QWidget *dialog)
    : QObject(dialog),
      Flags(new FlagCombo(dialog)),
      add(newButton("Command2", "&Add Flags", dialog)),
      remove(newButton(kind.removeButton, "&Remove Flags", dialog)),
      help(newButton(kind.helpButton, "&Flags", dialog)),
      m_kind(kind),
      m_dialogs(context.dialogs),
      m_path(context.config.ProgramFolder + u'/' + kind.fileName),
      m_help(context.config, context.dialogs, context.helpViewer(dialog))
{
    Flags->setObjectName(QStringLiteral("Flags"));
    connect(add, &QPushButton::clicked, this, &FlagList::addFlag);
    connect(remove, &QPushButton::clicked, this, [this] {
        if (Flags->currentIndex() >= 0)
            Flags->removeSelected();
    });
    connect(help, &QPushButton::clicked, this, [this] { m_help.entryHelp(m_kind.helpKeyword); });
}

QString FlagList::text() const { return Flags->currentText(); }

void FlagList::load()
{
    Flags->setEditText(m_kind.firstText);
    const auto flags = readFlagFile(m_path, m_kind.layout);
    if (!flags || flags->isEmpty()) // a file that cannot be read leaves the list empty
        return;
    Flags->addItems(*flags);
    Flags->setCurrentIndex(0);
}

void FlagList::save() const
{
    if (const auto written = writeFlagFile(m_path, m_kind.layout, Flags->items()); !written)
        m_dialogs.message({notSavedText(m_path, written.failure())});
}

void FlagList::addFlag()
{
    if (text().isEmpty())
        return;
    if (Flags->items().contains(text()))
        m_dialogs.message(m_kind.alreadyThere);
    else
        Flags->append(text());
}

} // namespace ardiphon
