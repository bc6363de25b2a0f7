// How long a colour that is picked takes until it is seen in the editor, and how long the font
// window and a large folder take to open, as medians. It writes only to a temporary folder of its
// own.

#include "Measure.h"

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/modRegistry.h"
#include "language/WordTables.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/EditorSettings.h"
#include "platform/ui/QtDialogs.h"
#include "preferences/SettingsValues.h"
#include "preferences/ui/FolderTree.h"
#include "preferences/ui/FormFont.h"
#include "preferences/ui/FormImpostazioni.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QDir>
#include <QFontDatabase>

using namespace ardiphon;

namespace measure::settings {

constexpr int Runs = 21;

/// Answers every question for a colour at once, with another one each time.
class PickingDialogs : public QtDialogs
{
public:
    std::optional<Color> color(Color) override { return Color::rgb(200, 220, m_next++); }

private:
    std::uint32_t m_next = 0;
};

/// Tells when the text was painted.
class PaintWatch : public QObject
{
public:
    explicit PaintWatch(const LEditOCX &editor)
    {
        editor.findChild<QAbstractScrollArea *>()->viewport()->installEventFilter(this);
    }

    void waitForPaint()
    {
        m_painted = false;
        while (!m_painted)
            QApplication::processEvents();
    }

protected:
    bool eventFilter(QObject *, QEvent *event) override
    {
        m_painted = m_painted || event->type() == QEvent::Paint;
        return false;
    }

private:
    bool m_painted = false;
};

class Bench
{
public:
    Bench()
    {
        LoadConfiguration(m_config, m_settings);
        m_config.Words = std::make_shared<WordTables>();
        m_config.Words->LoadWordTables(QStringLiteral(PROGRAM_DIR));
        m_config.FontName = m_config.DefaultFontName;
    }

    void measurePicks(int lines)
    {
        LEditOCX first;
        LEditOCX second;
        applySettings(first, m_config);
        first.SetGetTokenColors([this](TokenKind kind, const QString &text) {
            return GetTokenColors(m_config, DocumentRole::Csd, kind, text);
        });
        first.SetText(
            QStringLiteral("aOut oscili 0.5, 440, \"file\" ; comment\r\n").repeated(lines));
        first.resize(1200, 900);
        first.show();
        PaintWatch watch(first);
        for (const int top : {1, lines / 2, lines}) {
            first.SetTopLine(top);
            QApplication::processEvents();
            FormImpostazioni settings(m_program, {first, second}, CsdSettings, &first);
            settings.show();
            for (const char *patch : {"picBackColor", "picRem"})
                measurePick(settings, patch, top, watch, lines);
        }
    }

    void measureFontWindow()
    {
        const double opened = measure::medianOf(Runs, [this] {
            return measure::wallTime([this] {
                FormFont window(m_config, m_dialogs, nullptr);
                window.show();
                QApplication::processEvents();
            });
        });
        const QByteArray what =
            "font window, " + QByteArray::number(QFontDatabase::families().size()) + " fonts";
        measure::row(what.constData(), measure::NoSize, opened, "ms", 100);
    }

    void measureLargeFolder() const
    {
        constexpr int Folders = 20000;
        const QDir large(m_folder.filePath(QStringLiteral("large")));
        for (int i = 0; i < Folders; ++i)
            QDir().mkpath(large.filePath(QString::number(i)));
        const double opened = measure::medianOf(5, [&large] {
            FolderTree tree(nullptr);
            tree.resize(360, 300);
            tree.show();
            tree.setPath(QFileInfo(large.path()).canonicalPath());
            QApplication::processEvents();
            QTreeWidgetItem *const item = tree.currentItem()->child(0);
            return measure::wallTime([&] {
                item->setExpanded(true);
                while (item->childCount() < Folders)
                    QApplication::processEvents();
                QApplication::processEvents(); // and the painting
            });
        });
        measure::row("folder of folders, opened", Folders, opened, "ms", 300);
    }

private:
    void measurePick(FormImpostazioni &settings, const char *patch, int top, PaintWatch &watch,
                     int lines)
    {
        auto *const button = settings.findChild<QAbstractButton *>(QLatin1String(patch));
        const double picked = measure::medianOf(Runs, [&] {
            return measure::wallTime([&] {
                button->click();
                watch.waitForPaint();
                QApplication::processEvents(); // up to its end
            });
        });
        const char *const place = top == 1 ? "top" : top == lines ? "end" : "middle";
        const QByteArray what = QByteArray("colour pick, ") + patch + ", at the " + place;
        measure::row(what.constData(), lines, picked, "ms", 16.7);
    }

    QTemporaryDir m_folder;
    ConfigurationBlock m_config;
    SettingsStore m_settings{m_folder.filePath(QStringLiteral("settings.ini"))};
    PickingDialogs m_dialogs;
    ProgramContext m_program{m_config, m_settings, m_dialogs, {}};
};

BENCHMARK(settings)
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Bench bench;
    bench.measureFontWindow();
    bench.measureLargeFolder();
    for (const int lines : measure::Sizes)
        bench.measurePicks(lines);
    return 0;
}

} // namespace measure::settings
