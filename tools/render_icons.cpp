// Draws an SVG picture at the sizes in which desktops want their icons:
//
//   render_icons PICTURE OUTPUT-FOLDER NAME SIZE...
//
// copies the picture to OUTPUT-FOLDER/NAME.svg and draws it into OUTPUT-FOLDER/48x48/NAME.png for
// the size 48, and so on.

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include <iostream>

namespace {

bool draw(QSvgRenderer &picture, int size, const QString &path)
{
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    picture.render(&painter);
    painter.end();
    return image.save(path);
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc < 5) {
        std::cerr << "usage: render_icons PICTURE OUTPUT-FOLDER NAME SIZE...\n";
        return 2;
    }
    const QString source = QFile::decodeName(argv[1]);
    const QDir folder(QFile::decodeName(argv[2]));
    const QString name = QFile::decodeName(argv[3]);
    QSvgRenderer picture(source);
    const QString copy = folder.filePath(name + QStringLiteral(".svg"));
    QFile::remove(copy);
    bool good =
        picture.isValid() && folder.mkpath(QStringLiteral(".")) && QFile::copy(source, copy);
    for (int i = 4; i < argc; ++i) {
        const int size = QByteArray(argv[i]).toInt();
        const QString place = QStringLiteral("%1x%1").arg(size);
        good = good && folder.mkpath(place) &&
               draw(picture, size, folder.filePath(place + u'/' + name + QStringLiteral(".png")));
    }
    if (!good)
        std::cerr << argv[1] << ": cannot be drawn into " << argv[2] << '\n';
    return good ? 0 : 1;
}
