#include "audio/ui/FormSNDInfo.h"

#include "app/ui/PathLabel.h"
#include "audio/WaveTexts.h"
#include "platform/Dialogs.h"

#include <QBoxLayout>
#include <QFileInfo>
#include <QLabel>
#include <QLocale>
#include <QPushButton>

namespace ardiphon {

FormSNDInfo::FormSNDInfo(Dialogs &dialogs, QWidget *owner) : QDialog(owner), m_dialogs(dialogs)
{
    setObjectName(QStringLiteral("FormSNDInfo"));
    setWindowTitle(QStringLiteral("SNDINFO - Get Soundfile Information"));
    auto *all = new QVBoxLayout(this);
    addLabel("Label1", QStringLiteral("Input File:"));
    LabelInput = new PathLabel(QStringLiteral("LabelInput"), this);
    all->addWidget(LabelInput);
    addLabel("Label2", QStringLiteral("Wave File Informations:"));
    LabelInfo = addLabel("LabelInfo", QString());
    LabelInfo->setMinimumHeight(9 * fontMetrics().lineSpacing());
    LabelInfo->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    LabelInfo->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    LabelInfo->setMargin(4);
    LabelInfo->setTextInteractionFlags(Qt::TextSelectableByMouse);
    all->setStretchFactor(LabelInfo, 1);

    auto *Command1 = new QPushButton(QStringLiteral("&Browse"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    connect(Command1, &QPushButton::clicked, this, &FormSNDInfo::browse);
    auto *CommandExit = new QPushButton(QStringLiteral("E&xit"), this);
    CommandExit->setObjectName(QStringLiteral("CommandExit"));
    connect(CommandExit, &QPushButton::clicked, this, &QWidget::close);
    auto *buttons = new QHBoxLayout;
    buttons->addWidget(Command1);
    buttons->addStretch();
    buttons->addWidget(CommandExit);
    all->addLayout(buttons);
    Command1->setFocus();
    resize(560, sizeHint().height());
}

QLabel *FormSNDInfo::addLabel(const char *name, const QString &text)
{
    auto *label = new QLabel(text, this);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    layout()->addWidget(label);
    return label;
}

void FormSNDInfo::browse()
{
    const auto path = m_dialogs.openFile(
        {QStringLiteral("Input File Name"), QStringLiteral("Wav files (*.wav)|*.wav"), QString()});
    if (path)
        display(*path);
}

void FormSNDInfo::display(const QString &path)
{
    LabelInput->showPath(path);
    if (path.right(3).toUpper() == QStringLiteral("WAV"))
        LabelInfo->setText(waveInformation(ReadWaveFormat(path), QFileInfo(path).size(),
                                           QLocale::system().groupSeparator()));
    else
        LabelInfo->setText(
            QStringLiteral("Cannot display informations: File is not a valid wave format!"));
}

} // namespace ardiphon
