#pragma once

#include "check/Problem.h"

#include <QWidget>

class QLabel;
class QTreeView;

namespace ardiphon {

class ProblemsModel;

/// `TreeProblems`, with a line above it for what hinders the check.
class ProblemsPanel : public QWidget
{
    Q_OBJECT

public:
    explicit ProblemsPanel(QWidget *parent = nullptr);

    void setProblems(const QList<Problem> &problems);
    /// "" shows nothing.
    void setStatus(const QString &status);
    void takeFocus();
    /// As high as a few rows.
    QSize sizeHint() const override;

signals:
    /// The user has chosen the problem of that index.
    void chosen(int index);
    /// The user wants that change.
    void fixWanted(const ardiphon::ProblemFix &fix);
    /// The user goes back to the text.
    void left();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void showMenu(const QPoint &at);

    QLabel *LabelProblems;
    QTreeView *TreeProblems;
    ProblemsModel *m_model;
};

} // namespace ardiphon
