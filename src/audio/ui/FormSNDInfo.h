#pragma once

#include <QDialog>

class QLabel;

namespace ardiphon {

class Dialogs;
class PathLabel;

/// Shows what the header of a chosen wave file says.
class FormSNDInfo : public QDialog
{
    Q_OBJECT

public:
    FormSNDInfo(Dialogs &dialogs, QWidget *owner);

private:
    QLabel *addLabel(const char *name, const QString &text);
    void browse();
    void display(const QString &path);

    Dialogs &m_dialogs;
    PathLabel *LabelInput;
    QLabel *LabelInfo;
};

} // namespace ardiphon
