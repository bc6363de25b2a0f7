#include "documents/ui/FormCSD.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/ui/FormNew.h"
#include "audio/ui/FormPlayer.h"
#include "audio/ui/FormSNDInfo.h"
#include "compile/ui/CsdCompileLauncher.h"
#include "documents/CsdWindowLayout.h"
#include "documents/DocumentRules.h"
#include "documents/Headers.h"
#include "documents/ui/CsdDocument.h"
#include "documents/ui/RecentMenu.h"
#include "documents/ui/SplitMirror.h"
#include "documents/ui/TagPanel.h"
#include "documents/ui/ToolToggles.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/EditorPopup.h"
#include "language/ui/EditorSettings.h"
#include "language/ui/FontSizeMenu.h"
#include "language/ui/Gutter.h"
#include "language/ui/HelpPanels.h"
#include "language/ui/KeywordHelp.h"
#include "navigation/ui/Bookmarks.h"
#include "platform/Twips.h"
#include "preferences/ui/FormAbout.h"
#include "preferences/ui/FormHelp.h"
#include "preferences/ui/FormManual.h"

#include <QCloseEvent>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QTreeWidget>

namespace ardiphon {

namespace {

constexpr int TextState = 2;
constexpr int RefreshInterval = 100; // milliseconds
constexpr QSize ToolIconSize(20, 20);

QRect inPixels(const QRect &twips)
{
    return {toPixels(twips.x()), toPixels(twips.y()), toPixels(twips.width()),
            toPixels(twips.height())};
}

bool isEmptyText(const LEditOCX &editor)
{
    return editor.LineCount() <= 1 && editor.LineLength(1) == 0;
}

} // namespace

FormCSD::FormCSD(ProgramContext &program) : EditorWindow(program)
{
    setObjectName(QStringLiteral("FormCSD"));
    buildControls();
    buildFeatures();
    buildMenus();
    bindDocument();
    bindEditing();
    bindTools();
    bindWindow();
    bindHelp();
    groupTools();
    m_tools->load();
    takePlacement();
    openNamedDocument();

    Timer1.setObjectName(QStringLiteral("Timer1"));
    connect(&Timer1, &QTimer::timeout, this, &FormCSD::refresh);
    Timer1.start(RefreshInterval);
    LEDIT1->setFocus();
}

FormCSD::~FormCSD() = default;

// Building. --------------------------------------------------------------------------------------

void FormCSD::buildControls()
{
    setCentralWidget(new QWidget(this));
    LEDIT1 = newEditor(QStringLiteral("LEDIT1"));
    LEDIT2 = newEditor(QStringLiteral("LEDIT2"));
    LEDIT2->hide();
    PicNumeri = new Gutter(*LEDIT1, centralWidget());
    PicNumeri->setObjectName(QStringLiteral("PicNumeri"));
    PicNumeri2 = new Gutter(*LEDIT2, centralWidget());
    PicNumeri2->setObjectName(QStringLiteral("PicNumeri2"));

    LabelBookmarks = newLabel(QStringLiteral("LabelBookmarks"), tr("Tags in this file"));
    Tree = newTree(QStringLiteral("Tree"));
    LabelOwnBook = newLabel(QStringLiteral("LabelOwnBook"), tr("Bookmarks"));
    Tree2 = newTree(QStringLiteral("Tree2"));
    LabelTags = newLabel(QStringLiteral("LabelTags"), tr("Insert a tag"));
    List1 = new QListWidget(centralWidget());
    List1->setObjectName(QStringLiteral("List1"));

    m_panels = new HelpPanels(config().Words, centralWidget());
    Toolbar1 = new QToolBar(centralWidget());
    Toolbar1->setObjectName(QStringLiteral("Toolbar1"));
    Toolbar1->setIconSize(ToolIconSize);
}

LEditOCX *FormCSD::newEditor(const QString &name)
{
    auto *editor = new LEditOCX(centralWidget());
    editor->setObjectName(name);
    editor->ClearState(TextState);
    applySettings(*editor, config());
    editor->SetGetTokenColors([this](TokenKind kind, const QString &text) {
        return GetTokenColors(config(), ViewLanguage::Csd, kind, text);
    });
    return editor;
}

QTreeWidget *FormCSD::newTree(const QString &name)
{
    auto *tree = new QTreeWidget(centralWidget());
    tree->setObjectName(name);
    tree->setHeaderHidden(true);
    tree->setRootIsDecorated(false);
    // The nodes are blue, which wants a light ground on every desktop.
    QPalette palette = tree->palette();
    palette.setColor(QPalette::Base, Qt::white);
    tree->setPalette(palette);
    return tree;
}

QLabel *FormCSD::newLabel(const QString &name, const QString &caption)
{
    auto *label = new QLabel(caption, centralWidget());
    label->setObjectName(name);
    return label;
}

void FormCSD::buildFeatures()
{
    m_bookmarks = new Bookmarks(*LEDIT1, *Tree2, config().CSDModified, QStringLiteral("bkm"),
                                program().dialogs);
    const auto chooseNew = [this] { FormNew::showModal(config(), program().windows, this); };
    m_document = new CsdDocument(*LEDIT1, *m_bookmarks, program(), chooseNew, this);
    m_help = std::make_unique<KeywordHelp>(config(), program().dialogs, manualViewer(this));
    m_tags = new TagPanel(*LEDIT1, *Tree, *List1, config().Words.CsdWords);
    m_mirror = new SplitMirror(*LEDIT1, *LEDIT2, this);
    m_tools = new ToolToggles(program(), this);
    m_fontSizes = new FontSizeMenu(config(), this);
    m_recent = new RecentMenu(program(), this);
}

void FormCSD::buildMenus()
{
    CommandSet &set = commands();
    set.add(csdCommands());
    addHeaders();
    set.addGroup("menuLastFile", m_recent->entries());
    set.addGroup("menuFontSize", m_fontSizes->entries());
    set.fill(*menuBar(), csdMenus(), csdSubmenus());
    set.fill(*Toolbar1, csdToolbar());
    menuPopup = new QMenu(this);
    set.fill(*menuPopup, csdPopup());
}

void FormCSD::addHeaders()
{
    QList<QAction *> actions;
    for (const Header &header : headers()) {
        commands().add({header.name, header.caption});
        commands().bind(header.name, this, [this, &header] { insertText(headerText(header)); });
        actions.append(commands().action(header.name));
    }
    commands().addGroup("menuHeaders", actions);
}

void FormCSD::groupTools()
{
    m_tools->add(tools()[0], PicNumeri);
    m_tools->add(tools()[0], PicNumeri2, [this] { return isSplit(); });
    for (QWidget *control : std::initializer_list<QWidget *>{Tree, Tree2, List1, LabelTags,
                                                             LabelBookmarks, LabelOwnBook})
        m_tools->add(tools()[1], control);
    m_tools->add(tools()[2], m_panels->TextOpcode);
    m_tools->add(tools()[2], m_panels->TextParametri);
    m_tools->add(tools()[3], Toolbar1);
}

void FormCSD::openNamedDocument()
{
    if (config().CSDFileName.isEmpty())
        config().CSDFileName = Untitled;
    else
        m_document->OpenNamedOnLoad(config().CSDFileName);
    writeTitle();
}

// Binding. ---------------------------------------------------------------------------------------

void FormCSD::bindDocument()
{
    CommandSet &set = commands();
    set.bind("menuFileNuovaOrchestra", m_document, &CsdDocument::New);
    set.bind("menuFileApriOrchestra", m_document, &CsdDocument::Open);
    set.bind("menuFileSalvaOrchestra", m_document, &CsdDocument::Save);
    set.bind("menuFileSalvaOrchestraNome", m_document, &CsdDocument::SaveAs);
    set.bind("menuFileEsci", this, [this] {
        config().FormCSDClosing = true;
        close();
    });
    set.bind("buttonDefaultDir", m_document, &CsdDocument::returnToWorkingDirectory);

    connect(m_document, &CsdDocument::titleDue, this, &FormCSD::writeTitle);
    connect(m_document, &CsdDocument::projectWindowDue, this, &FormCSD::handOverToProject);
    connect(m_document, &CsdDocument::begun, this, [this] { setSplit(false); });
    connect(m_document, &CsdDocument::begun, m_tags, &TagPanel::clear);
    connect(m_document, &CsdDocument::begun, m_panels, &HelpPanels::clear);
    connect(m_document, &CsdDocument::loaded, this, &FormCSD::textReplaced);
    connect(m_document, &CsdDocument::opened, m_recent, &RecentMenu::refresh);
    connect(m_recent, &RecentMenu::chosen, m_document, &CsdDocument::OpenRecent);
}

/// The entries of the menu act on the first view, whichever has the focus. Which view each of them
/// marks as changed is as users of the program know it: Copy marks the second.
void FormCSD::bindEditing()
{
    CommandSet &set = commands();
    const auto edit = [this, &set](const char *name, auto operation) {
        set.bind(name, this, [this, operation] {
            (LEDIT1->*operation)();
            m_mirror->setView1Changed();
        });
    };
    edit("menuModificaUndo", &LEditOCX::Undo);
    edit("menuModificaRedo", &LEditOCX::Redo);
    edit("menuModificaTaglia", &LEditOCX::Cut);
    edit("menuModificaIncolla", &LEditOCX::Paste);
    set.bind("menuModificaCopia", this, [this] {
        LEDIT1->Copy();
        m_mirror->setView2Changed();
    });
    set.bind("menuModificaSelezionaTutto", LEDIT1, &LEditOCX::SelectAll);
    set.bind("menuTemplateCSD", this, [this] { insertText(csdTemplate()); });

    set.bindTo("menuPopupUndo", "menuModificaUndo");
    set.bindTo("menuPopupRedo", "menuModificaRedo");
    set.bindTo("menuPopupTaglia", "menuModificaTaglia");
    set.bindTo("menuPopupCopia", "menuModificaCopia");
    set.bindTo("menuPopupIncolla", "menuModificaIncolla");
    set.bindTo("menuPopupSelezionaTutto", "menuModificaSelezionaTutto");
    for (LEditOCX *view : {LEDIT1, LEDIT2})
        new EditorPopup(*view, *menuPopup, [this, view] { preparePopup(*view); });
    bindViewKeys(LEDIT1, ViewPosition::First);
    bindViewKeys(LEDIT2, ViewPosition::Second);
}

void FormCSD::bindTools()
{
    CommandSet &set = commands();
    set.bind("menuCSound", this,
             [this] { launchCsdCompile(config(), program().dialogs, *LEDIT1, this); });
    set.bind("menuSndInfo", this, [this] { FormSNDInfo(program().dialogs, this).exec(); });
    set.bind("menuPlayer", this, [this] { FormPlayer(config(), program().dialogs, this).exec(); });

    set.bind("menuPopupBookmark", m_bookmarks, &Bookmarks::InsertBookmark);
    set.bind("menuPopupRemoveBookmark", m_bookmarks, &Bookmarks::RemoveBookmark);
    set.bind("menuPopupRemoveAllBookmarks", m_bookmarks, &Bookmarks::RemoveAllBookmarks);
    set.bindTo("menuToolsBookmark", "menuPopupBookmark");
    set.bindTo("menuToolsRemoveBookmark", "menuPopupRemoveBookmark");
    set.bindTo("menuToolsRemoveAllBookmark", "menuPopupRemoveAllBookmarks");
    connect(m_bookmarks, &Bookmarks::visited, LEDIT1, qOverload<>(&QWidget::setFocus));

    connect(m_tags, &TagPanel::inserted, m_mirror, &SplitMirror::copyFirstToSecond);
    set.bind("buttonCarattereMeno", m_fontSizes, &FontSizeMenu::stepDown);
    set.bind("buttonCaratterePiu", m_fontSizes, &FontSizeMenu::stepUp);
    connect(m_fontSizes, &FontSizeMenu::chosen, this, &FormCSD::applyFontSize);
    set.bind("buttonSplit", this, &FormCSD::setSplit);
}

void FormCSD::bindWindow()
{
    CommandSet &set = commands();
    for (const Tool &tool : tools())
        set.bind(tool.command, m_tools, [this, &tool] { m_tools->toggle(tool); });
    connect(findChild<QMenu *>(QStringLiteral("menuWindow")), &QMenu::aboutToShow, this, [this] {
        for (const Tool &tool : tools())
            commands().action(tool.command)->setChecked(config().*tool.visible);
    });
    set.bind("menuWindowAllTools", m_tools, &ToolToggles::hideOrRestoreAll);
    set.bind("menuWindowRestore", m_tools, &ToolToggles::restoreAll);
    connect(m_tools, &ToolToggles::arrangeDue, this, &FormCSD::arrangeWindow);

    set.bind("menuWindowUp", this, [this] { moveToHalf(ScreenHalf::Upper); });
    set.bind("menuWindowDown", this, [this] { moveToHalf(ScreenHalf::Lower); });
    set.bind("menuWindowLeft", this, [this] { moveToHalf(ScreenHalf::Left); });
    set.bind("menuWindowRight", this, [this] { moveToHalf(ScreenHalf::Right); });
}

void FormCSD::bindHelp()
{
    CommandSet &set = commands();
    const auto ask = [this, &set](const char *name, void (KeywordHelp::*request)()) {
        set.bind(name, this, [this, request] { (m_help.get()->*request)(); });
    };
    ask("menuInfoCsoundHelp", &KeywordHelp::helpIndex);
    ask("menuInfoCSoundAVHelp", &KeywordHelp::csoundAvHelp);
    ask("buttonOpcodeHelp", &KeywordHelp::opcodeHelp);
    ask("buttonFlagsHelp", &KeywordHelp::flagsHelp);
    ask("menuPopupOpcodeHelp", &KeywordHelp::menuPopupOpcodeHelp);
    set.bind("menuInfoArdiphonHelp", this, [this] { FormHelp(this).exec(); });
    set.bind("menuInfoAbout", this,
             [this] { FormAbout(config().Words.OpcodeHelpVersion, this).exec(); });
    m_panels->follow(LEDIT1);
    m_panels->follow(LEDIT2);
}

/// The entries of the popup that name the word that was clicked.
void FormCSD::preparePopup(LEditOCX &view)
{
    commands().action("menuPopupOpcodeHelp")->setText(m_help->prepareMenu(view, ViewLanguage::Csd));
}

void FormCSD::bindViewKeys(LEditOCX *view, ViewPosition position)
{
    connect(view, &LEditOCX::KeyDown, this,
            [this, view, position](EditorKey &key) { handleViewKey(view, position, key); });
}

void FormCSD::handleViewKey(LEditOCX *view, ViewPosition position, EditorKey &key)
{
    const ViewKey meaning = csdViewKey(key.KeyCode, key.Shift, position);
    if (!reachesControl(meaning))
        key.KeyCode = 0;
    switch (meaning) {
    case ViewKey::CloseWindow:
        close();
        break;
    case ViewKey::Redo:
        view->Redo();
        break;
    case ViewKey::KeywordHelp:
        m_help->keyHelp(*view, ViewLanguage::Csd);
        break;
    case ViewKey::HelpIndex:
        m_help->keyIndex();
        break;
    case ViewKey::FocusFirstView:
        LEDIT1->setFocus();
        break;
    case ViewKey::FocusSecondView:
        if (isSplit())
            LEDIT2->setFocus();
        break;
    default:
        break;
    }
}

// What the window does itself. -------------------------------------------------------------------

void FormCSD::insertText(const QString &text)
{
    if (LEDIT1->SelectionLength() > 0)
        LEDIT1->SetSelText(QString());
    LEDIT1->SetSelText(text);
    m_mirror->copyFirstToSecond();
    LEDIT1->setFocus();
}

bool FormCSD::isSplit() const { return !LEDIT2->isHidden(); }

void FormCSD::setSplit(bool on)
{
    commands().action("buttonSplit")->setChecked(on);
    if (on) {
        LEDIT2->SetText(LEDIT1->Text());
        LEDIT2->ResetUndo();
    } else {
        LEDIT2->ClearDocument();
        LEDIT2->ClearState(TextState);
        LEDIT2->ResetUndo();
    }
    LEDIT2->setVisible(on);
    PicNumeri2->setVisible(on && config().LineNumbersVisible);
    m_mirror->setSplit(on);
    arrangeWindow();
}

void FormCSD::applyFontSize()
{
    LEDIT1->SetFontSize(config().FontSize);
    arrangeWindow();
}

void FormCSD::arrangeWindow()
{
    PicNumeri->takeFont();
    if (isSplit()) {
        LEDIT2->SetFontName(LEDIT1->FontName());
        LEDIT2->SetFontSize(LEDIT1->FontSize());
        PicNumeri2->takeFont();
    }
    CsdWindowState state;
    state.innerWidth = toTwips(centralWidget()->width());
    state.innerHeight = toTwips(centralWidget()->height());
    state.gutterWidth = toTwips(PicNumeri->textWidth());
    state.LineNumbersVisible = config().LineNumbersVisible;
    state.BookBarVisible = config().BookBarVisible;
    state.OnLineHelpVisible = config().OnLineHelpVisible;
    state.ToolbarVisible = config().ToolbarVisible;
    state.split = isSplit();
    const CsdWindowLayout at = ArrangeWindow(state);

    const std::pair<QWidget *, QRect> places[] = {
        {Toolbar1, at.Toolbar1},
        {LEDIT1, at.LEDIT1},
        {m_panels->TextOpcode, at.TextOpcode},
        {m_panels->TextParametri, at.TextParametri},
        {LEDIT2, at.LEDIT2},
        {PicNumeri, at.PicNumeri},
        {PicNumeri2, at.PicNumeri2},
        {Tree, at.Tree},
        {Tree2, at.Tree2},
        {List1, at.List1},
        {LabelTags, at.LabelTags},
        {LabelBookmarks, at.LabelBookmarks},
        {LabelOwnBook, at.LabelOwnBook},
    };
    for (const auto &[control, place] : places)
        control->setGeometry(inPixels(place));
}

void FormCSD::resizeEvent(QResizeEvent *event)
{
    EditorWindow::resizeEvent(event);
    arrangeWindow();
}

/// Runs ten times a second; costs nothing while nothing changes.
void FormCSD::refresh()
{
    const bool modified = LEDIT1->GetState(TextState);
    if (!modified && isEmptyText(*LEDIT1))
        return;
    m_tags->refreshNext();
    if (modified)
        setWindowTitle(markedModified(windowTitle()));
}

void FormCSD::writeTitle() { setWindowTitle(csdTitle(config().CSDFileName)); }

void FormCSD::textReplaced()
{
    m_tags->clear();
    m_mirror->copyFirstToSecond();
    if (isSplit())
        LEDIT2->ResetUndo();
}

void FormCSD::openDroppedFile(const QString &path) { m_document->OpenByName(path); }

LEditOCX *FormCSD::focusedEditor() const
{
    if (LEDIT1->hasFocus())
        return LEDIT1;
    return isSplit() && LEDIT2->hasFocus() ? LEDIT2 : nullptr;
}

void FormCSD::handOverToProject()
{
    TrovaPosForm();
    program().windows.showFormORCSCO();
    close();
}

/// The steps behind the question run after a Cancel too; only the window stays.
void FormCSD::closeEvent(QCloseEvent *event)
{
    bool saved = false;
    const bool leaves = m_document->mayLeave(saved);
    if (saved) {
        m_bookmarks->saveIfChanged(config().CSDFileName);
        m_tools->save();
    }
    const bool closedByUser = event->spontaneous();
    if (closedByUser || config().FormCSDClosing)
        config().Words.CloseOpcodeFile();
    QFile::remove(config().RootPath + QStringLiteral("tmp.txt"));
    event->setAccepted(leaves);
}

} // namespace ardiphon
