#pragma once

#include "start/ui/PictureDrawing.h"

#include <QDialog>
#include <QHash>
#include <QTimer>

#include <functional>
#include <optional>

class QLayout;

namespace ardiphon {

class ChooserLabel;
class PictureButton;

/// The base of the two choosers: a small window without a frame, whose pictures and labels are lit
/// under the mouse and whose choices each have a key.
class ChooserWindow : public QDialog
{
    Q_OBJECT

protected:
    ChooserWindow(const QString &caption, QWidget *owner, Qt::WindowFlags kind);

    /// Makes a picture that is lit under the mouse. \a choice runs when it is clicked.
    PictureButton *addPicture(Picture picture, const QString &name, const QString &accessibleName,
                              std::function<void()> choice);
    /// Makes `picCSD` and `picORCSCO`, side by side, with their keys C and O.
    QLayout *addDocumentPictures(const std::function<void()> &newCsd,
                                 const std::function<void()> &newProject);
    /// Has \a label lit under the mouse.
    void addLabel(ChooserLabel *label);
    /// Runs \a choice when \a key is pressed alone or with Alt: the key that types this character,
    /// or the one at its place where that types no Latin letter or digit.
    void addKey(Qt::Key key, std::function<void()> choice) { m_keys[key] = std::move(choice); }

    /// Puts \a title and the small pictures \a buttons on a strip at the top, \a body below it.
    void layOut(QWidget *title, const QList<QWidget *> &buttons, QLayout *body);

    /// Places the window, which must be laid out, in the middle of \a area of the screen.
    void centerIn(const QRect &area);

    /// The user has moved the window: from now on it stays where it is.
    void placeIsTheUsers() { m_asksForPlace = false; }

    /// Turns every picture gray and every label transparent; nothing while a picture is pressed.
    void darken();

    void keyPressEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void lightPicture(PictureButton *lit);
    void lightLabel(ChooserLabel *lit);
    void lightOnly(PictureButton *picture, ChooserLabel *label);
    void press(PictureButton *picture);
    void release(PictureButton *picture);
    void darkenWhenLeft();
    QRect WindowRect() const;
    void askForPlaceAgain();

    QList<PictureButton *> m_pictures;
    QList<ChooserLabel *> m_labels;
    QHash<int, std::function<void()>> m_keys;
    QTimer Timer1{this}; ///< runs only while something is lit
    bool ButtonPressed = false;
    QPoint m_place; ///< the place that was asked for
    bool m_asksForPlace = false;
    /// The window's place by the last event of the mouse; none after the window has moved.
    std::optional<QPoint> m_origin;
};

} // namespace ardiphon
