#include "start/ui/Form1.h"

#include "app/ConfigurationBlock.h"
#include "app/RecentFiles.h"
#include "app/WindowMirror.h"
#include "app/modRegistry.h"
#include "app/ui/ToolTip.h"
#include "platform/Dialogs.h"
#include "platform/FileName.h"
#include "platform/ProgramFolder.h"
#include "platform/Twips.h"
#include "start/ui/ChooserLabel.h"
#include "start/ui/PictureButton.h"
#include "start/ui/TitleStrip.h"

#include <QCloseEvent>
#include <QDir>
#include <QGridLayout>
#include <QGuiApplication>
#include <QScreen>

namespace ardiphon {

namespace {

constexpr int FileLabelWidth = 231; // logical pixels
constexpr int KeyLabelWidth = 22;
constexpr int BrowseIndex = 4;

// What a label shows for an empty entry of the recent list; it opens nothing.
const QString NoFile = QStringLiteral("...");

const QString BrowseFilter =
    QStringLiteral("Csound Files (*.csd;*.orc;*.sco)|*.csd;*.orc;*.sco|CSD Files (*.csd)|*.csd|"
                   "ORC Files (*.orc)|*.orc|SCO Files (*.sco)|*.sco|Text Files (*.txt)|*.txt|"
                   "All Files (*.*)|*.*");

} // namespace

Form1::Form1(ConfigurationBlock &config, SettingsStore &store, Dialogs &dialogs,
             EditorWindows windows, QWidget *parent)
    : ChooserWindow(QStringLiteral("ArdiphonPro Startup"), parent, Qt::Window),
      m_config(config),
      m_store(store),
      m_dialogs(dialogs),
      m_windows(std::move(windows))
{
    setObjectName(QStringLiteral("Form1"));
}

void Form1::Load(const QString &commandText, const QString &programFolder, const QString &rootPath)
{
    LoadConfiguration(m_config, m_store);
    loadWords(programFolder);
    setDefaultGeometry();
    m_config.RootPath = rootPath;
    m_config.ProgramFolder = writableProgramFolder(programFolder);

    const StartWindow window = decideStart(m_config, commandText);
    if (window == StartWindow::Chooser)
        prepareChooser();
    else
        m_windows.show(window);
}

void Form1::setDefaultGeometry()
{
    m_workArea = QGuiApplication::primaryScreen()->availableGeometry();
    mirrorWorkArea(m_config, m_workArea);
    m_config.WindowLeft = 0;
    m_config.WindowTop = 0;
    m_config.WindowWidth = toTwips(m_workArea.x() + m_workArea.width());
    m_config.WindowHeight = toTwips(m_workArea.y() + m_workArea.height());
}

void Form1::prepareChooser()
{
    m_config.WindowLeft = 0;
    m_config.WindowTop = 0;
    m_config.WindowWidth = 700;
    m_config.WindowHeight = 500;
    build();
    readFiles();
    centerIn(m_workArea);
    show();
    const QString first =
        ReadRegistryString(m_store, registry::InstallPathKey, QStringLiteral("First"));
    if (first == QLatin1String("1")) {
        showAssociate(this);
        activateWindow(); // it was not on the screen when the question took the focus
    }
}

void Form1::build()
{
    auto *const body = new QHBoxLayout;
    body->setContentsMargins(16, 18, 16, 18);
    body->setSpacing(18);
    body->addLayout(buildDocuments());
    body->addLayout(buildFiles());
    layOut(buildTitle(), buildSmallPictures(), body);
}

QWidget *Form1::buildTitle()
{
    auto *const labelBAR = new TitleStrip(windowTitle(), this);
    labelBAR->setObjectName(QStringLiteral("labelBAR"));
    connect(labelBAR, &TitleStrip::mouseMoved, this, [this] {
        placeIsTheUsers();
        darken();
    });
    return labelBAR;
}

QList<QWidget *> Form1::buildSmallPictures()
{
    QList<QWidget *> pictures;
    const auto add = [&](Picture picture, const char *name, const char *tip,
                         std::function<void()> choice) {
        const QString text = QString::fromLatin1(tip);
        pictures.append(addPicture(picture, QString::fromLatin1(name), text, std::move(choice)));
        pictures.last()->setToolTip(text);
    };
    add(Picture::Info, "picInfo", "Informations", [this] { showAbout(this); });
    add(Picture::Close, "picChiudi", "Exit Ardiphon", [this] { leave(); });
    return pictures;
}

QLayout *Form1::buildDocuments()
{
    return addDocumentPictures([this] { newCsd(); }, [this] { newProject(); });
}

QLayout *Form1::buildFiles()
{
    auto *const grid = new QGridLayout;
    grid->setHorizontalSpacing(2);
    grid->setVerticalSpacing(4);
    for (int i = 0; i < RecentFileCount; ++i) {
        grid->addWidget(buildKeyLabel(i + 1), i, 0);
        grid->addWidget(
            buildFileLabel(i, NoFile, Qt::Key(Qt::Key_1 + i), [this, i] { openListed(i); }), i, 1);
    }
    grid->addWidget(
        buildFileLabel(BrowseIndex, QStringLiteral("- BROWSE -"), Qt::Key_B, [this] { browse(); }),
        BrowseIndex, 1);
    return grid;
}

QWidget *Form1::buildKeyLabel(int number)
{
    auto *const label = new ChooserLabel(QStringLiteral("&%1").arg(number), KeyLabelWidth, this);
    label->setObjectName(QStringLiteral("Label%1").arg(number));
    label->showAccessKey();
    label->setAttribute(Qt::WA_TransparentForMouseEvents); // it counts as background
    return label;
}

QWidget *Form1::buildFileLabel(int index, const QString &caption, Qt::Key key,
                               const std::function<void()> &choice)
{
    auto *const label = new ChooserLabel(caption, FileLabelWidth, this);
    label->setObjectName(QStringLiteral("LabelFiles(%1)").arg(index));
    connect(label, &ChooserLabel::clicked, this, choice);
    addLabel(label);
    addKey(key, choice);
    LabelFiles[std::size_t(index)] = label;
    return label;
}

void Form1::readFiles()
{
    ReadRecentFiles(m_config, m_store);
    for (std::size_t i = 0; i < RecentFileCount; ++i) {
        const QString &path = m_config.RecentFiles[i + 1];
        LabelFiles[i]->setText(path.isEmpty() ? NoFile : path);
        LabelFiles[i]->setToolTip(plainToolTip(path));
    }
}

void Form1::newCsd()
{
    m_config.CSDFileName.clear();
    openEditor(StartWindow::FormCSD);
}

void Form1::newProject()
{
    m_config.OrchestraFileName.clear();
    m_config.ScoreFileName.clear();
    openEditor(StartWindow::FormORCSCO);
}

void Form1::openListed(int index)
{
    const QString path = LabelFiles[std::size_t(index)]->text();
    if (path != NoFile)
        openFile(path);
}

void Form1::browse()
{
    const QString folder =
        m_config.WorkingDirectory.isEmpty() ? QDir::currentPath() : m_config.WorkingDirectory;
    const auto path = m_dialogs.openFile({QStringLiteral("Open Files"), BrowseFilter, folder});
    if (!path)
        return;
    m_config.StartFileName = *path;
    openFile(*path);
}

void Form1::openFile(const QString &path)
{
    if (isBrokenName(path))
        m_dialogs.message({brokenNameText(path)});
    else
        openEditor(nameDocument(m_config, path));
}

void Form1::openEditor(StartWindow window)
{
    m_windows.show(window);
    close();
}

void Form1::leave()
{
    m_isLeaving = true;
    mirrorLeaving(m_config);
    close();
}

void Form1::closeEvent(QCloseEvent *event)
{
    if (m_isLeaving)
        closeWords();
    ChooserWindow::closeEvent(event);
}

} // namespace ardiphon
