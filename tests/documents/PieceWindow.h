#pragma once

#include "documents/Pieces.h"
#include "documents/ui/FormCSD.h"
#include "documents/ui/FormORCSCO.h"
#include "language/editor/LEditOCX.h"
#include "support/TestProgram.h"

#include <QAction>
#include <QPointer>
#include <QTest>

/// A copy of a piece, with its partner, in the real window that it belongs to.
struct PieceWindow : TestProgram
{
    explicit PieceWindow(const Pieces::Piece &piece)
    {
        context.windows.showFormCSD = [] {};
        context.windows.showFormORCSCO = [] {};
        // Each class of word gets a back of its own, by which it is known again.
        config.ColorOrchestraBK = ardiphon::Color::rgb(200, 200, 255);
        config.ColorCSDBK = ardiphon::Color::rgb(255, 200, 230);
        config.ColorFilesBK = ardiphon::Color::rgb(255, 220, 200);
        config.ColorMacroBK = ardiphon::Color::rgb(230, 200, 255);
        config.ColorInstrEndinBK = ardiphon::Color::rgb(200, 255, 255);
        file = copyOf(piece.path);
        const QString other =
            piece.kind() == ardiphon::DocumentRole::Csd ? QString() : Pieces::partnerOf(piece);
        if (!other.isEmpty())
            partner = copyOf(other);
        show(piece.kind());
    }
    ~PieceWindow() { delete window; }

    void trigger(const char *command) const
    {
        auto *action = window->findChild<QAction *>(QLatin1String(command));
        if (!action)
            qFatal("no command %s", command);
        action->trigger();
    }

    ardiphon::LEditOCX *half(const char *name) const
    {
        return window->findChild<ardiphon::LEditOCX *>(QLatin1String(name));
    }

    QString file;    ///< the piece's copy
    QString partner; ///< that of its other half, or ""
    QPointer<ardiphon::EditorWindow> window;
    ardiphon::LEditOCX *editor = nullptr; ///< that of the piece

private:
    QString copyOf(const QString &source) const
    {
        return write(QFileInfo(source).fileName(), bytesOf(source));
    }

    void show(ardiphon::DocumentRole kind)
    {
        using namespace ardiphon;
        switch (kind) {
        case DocumentRole::Csd:
            config.CSDFileName = file;
            window = new FormCSD(context);
            break;
        case DocumentRole::Orchestra:
            config.OrchestraFileName = file;
            window = new FormORCSCO(context);
            break;
        case DocumentRole::Score:
            config.ScoreFileName = file;
            window = new FormORCSCO(context);
            break;
        }
        window->show();
        if (!QTest::qWaitForWindowExposed(window))
            qFatal("the window does not show");
        editor = half(kind == DocumentRole::Score ? "LEDIT2" : "LEDIT1");
    }
};
