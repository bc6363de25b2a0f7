// How long a colour that is picked takes until it is seen in the editor, and how long the font
// window takes to open, as medians. Run it with QT_QPA_PLATFORM=offscreen from any folder; it
// writes only to a temporary folder of its own.

#include "app/ConfigurationBlock.h"
#include "app/ProgramContext.h"
#include "app/modRegistry.h"
#include "language/editor/LEditOCX.h"
#include "language/ui/EditorSettings.h"
#include "platform/ui/QtDialogs.h"
#include "preferences/SettingsValues.h"
#include "preferences/ui/FormFont.h"
#include "preferences/ui/FormImpostazioni.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QElapsedTimer>
#include <QFontDatabase>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

using namespace ardiphon;

namespace {

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

double medianMilliseconds(const std::function<void()> &step)
{
    std::vector<double> values;
    for (int run = 0; run < Runs; ++run) {
        QElapsedTimer timer;
        timer.start();
        step();
        values.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(values.begin(), values.end());
    return values[Runs / 2];
}

class Bench
{
public:
    Bench()
    {
        LoadConfiguration(m_config, m_settings);
        m_config.Words.LoadWordTables(QStringLiteral(PROGRAM_DIR));
        m_config.FontName = m_config.DefaultFontName;
        m_config.SettingsCaller = CsdSettings;
    }

    void measurePicks(int lines)
    {
        LEditOCX first;
        LEditOCX second;
        applySettings(first, m_config);
        first.SetGetTokenColors([this](TokenKind kind, const QString &text) {
            return GetTokenColors(m_config, ViewLanguage::Csd, kind, text);
        });
        first.SetText(
            QStringLiteral("aOut oscili 0.5, 440, \"file\" ; comment\r\n").repeated(lines));
        first.resize(1200, 900);
        first.show();
        PaintWatch watch(first);
        for (const int top : {1, lines / 2, lines}) {
            first.SetTopLine(top);
            QApplication::processEvents();
            FormImpostazioni settings(m_program, {first, second}, {}, &first);
            settings.show();
            for (const char *patch : {"picBackColor", "picForeColor", "picRem", "Command4"}) {
                auto *button = settings.findChild<QAbstractButton *>(QLatin1String(patch));
                std::printf("%-14s %9d lines, top line %9d %8.2f ms   (one frame: 16.7)\n", patch,
                            lines, top, medianMilliseconds([&] {
                                button->click();
                                watch.waitForPaint();
                                QApplication::processEvents(); // up to its end
                            }));
            }
        }
    }

    void measureFontWindow()
    {
        const double opened = medianMilliseconds([this] {
            FormFont window(m_config, m_dialogs, nullptr);
            window.show();
            QApplication::processEvents();
        });
        std::printf("font window    %9lld fonts %31.2f ms   (at once: 100)\n",
                    static_cast<long long>(QFontDatabase::families().size()), opened);
    }

private:
    QTemporaryDir m_folder;
    ConfigurationBlock m_config;
    SettingsStore m_settings{m_folder.filePath(QStringLiteral("settings.ini"))};
    PickingDialogs m_dialogs;
    ProgramContext m_program{m_config, m_settings, m_dialogs, {}};
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Bench bench;
    bench.measureFontWindow();
    for (const int lines : {1000, 1000000})
        bench.measurePicks(lines);
    return 0;
}
