#pragma once

#include <QHash>
#include <QImage>
#include <QList>
#include <QPageSize>
#include <QRectF>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

namespace ardiphon {
class Printer;
}

/// A printer that prints into a PDF of the test's own, and what others read in that PDF. The file
/// is complete once the printer is destroyed.
class PrintedPdf
{
public:
    struct Word
    {
        int page; ///< from 1
        QString text;
        QRectF box; ///< in twips from the paper's corner
    };

    /// \a unreachable: how much of each edge the printer cannot reach, in millimetres.
    std::shared_ptr<ardiphon::Printer> printer(QPageSize::PageSizeId paper = QPageSize::A4,
                                               int resolution = 300, double unreachable = 0) const;

    QString path() const { return m_folder.filePath(QStringLiteral("printed.pdf")); }
    bool exists() const;
    int pageCount() const;
    /// The lines of each page, as they follow each other on paper, the header first.
    QList<QStringList> pages() const;
    /// The lines of all pages without their headers.
    QStringList bodyLines() const;
    QStringList headers() const;
    QList<Word> words() const;
    /// The first word with that text.
    Word word(const QString &text) const;
    QString fonts() const;
    /// A page as it looks, 20 twips to a pixel.
    QImage picture(int page) const;

private:
    /// What a tool of poppler-utils prints; it is started once for each file and question.
    QString told(const QString &tool, const QStringList &arguments) const;

    QTemporaryDir m_folder;
    mutable QHash<QString, QString> m_told;
};
