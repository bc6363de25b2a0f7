#pragma once

#include "compile/ProjectDialog.h"
#include "compile/ui/FormCSound.h"
#include "compile/ui/LinkedOutput.h"
#include "support/WaveBytes.h"

#include <QGroupBox>
#include <QTextBlock>

/// FormCSound over two editors.
struct CSoundDialog : ProjectDialog
{
    explicit CSoundDialog(const QString &piece = QStringLiteral("logged")) : ProjectDialog(piece)
    {
        orchestra.SetText(QStringLiteral("one\r\ntwo two\r\nthree\r\n"));
        score.SetText(QStringLiteral("i1 0 1\r\ni2 0 1 2\r\ne\r\n"));
        show();
    }
    void show()
    {
        open<ardiphon::FormCSound>(orchestra, score);
        output = control<ardiphon::LinkedOutput>("TxtOutputs");
    }
    QString text() const { return output->text(); }
    bool isPanelOpen() const { return control<QWidget>("FrameCompiler")->isVisible(); }
    QPushButton *goToError() const { return control("btnGoToError"); }
    /// Puts a sound of a second into the folder.
    void writeWave(const QString &name) const
    {
        write(name, WaveBytes::wave(1, 44100, QByteArray(88'200, '\0')));
    }
    QString playerCaption() const { return control<QGroupBox>("Frame1")->title(); }
    int playerMode() const { return control<ardiphon::MMControl>("MMControl1")->Mode(); }
    /// Clicks twice on the line of the output that begins so.
    void doubleClick(const QString &beginning) const
    {
        QTextBlock block = output->document()->begin();
        while (block.isValid() && !block.text().startsWith(beginning))
            block = block.next();
        if (!block.isValid())
            qFatal("no line %s", qPrintable(beginning));
        QTextCursor cursor(block);
        cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, 3);
        output->setTextCursor(cursor);
        const QPoint at = output->cursorRect(cursor).center();
        QTest::mouseMove(output->viewport(), at);
        QTest::mouseDClick(output->viewport(), Qt::LeftButton, {}, at);
    }

    ardiphon::LEditOCX orchestra;
    ardiphon::LEditOCX score;
    ardiphon::LinkedOutput *output = nullptr;
};
