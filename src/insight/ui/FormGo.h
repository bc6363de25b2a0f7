#pragma once

#include "piece/PieceNames.h"

#include <QDialog>

class QLineEdit;
class QListView;

namespace ardiphon {

class NameListModel;

/// "Go to Name": every name of the piece, narrowed as one types.
class FormGo : public QDialog
{
    Q_OBJECT

public:
    FormGo(const QList<PieceName> &names, QWidget *parent);
    ~FormGo() override;

    /// What was chosen, after the dialog was accepted.
    const PieceName &chosen() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void narrow(const QString &typed);
    void accept() override;

    NameListModel *m_model;
    QLineEdit *LineGoFilter;
    QListView *ListGoNames;
};

} // namespace ardiphon
