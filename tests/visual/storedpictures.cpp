// SPDX-License-Identifier: MIT
#include "visual/storedpictures.h"

#include "visual/comparison.h"

#include <QDir>
#include <QPainter>

namespace {

class PictureFolder : public StoredPictures
{
public:
    PictureFolder(const QString &folder, const QString &family)
        : m_folder(folder), m_prefix(family + '-')
    {
    }

    QStringList names() const override
    {
        QStringList names;
        for (const QString &file : QDir(m_folder).entryList({m_prefix + "*.png"}, QDir::Files))
            names.append(file.mid(m_prefix.size()).chopped(4));
        return names;
    }

    QImage picture(const QString &name) const override { return QImage(place(name)); }

    bool store(const QString &name, const QImage &picture) override
    {
        return storePicture(picture, place(name));
    }

    bool remove(const QString &name) override { return QFile::remove(place(name)); }

    QString place(const QString &name) const override
    {
        return QString("%1/%2%3.png").arg(m_folder, m_prefix, name);
    }

private:
    QString m_folder;
    QString m_prefix;
};

/// The file's texts contain the name of each picture and its rectangle, "x y width height".
class PictureSheet : public StoredPictures
{
public:
    explicit PictureSheet(const QString &path) : m_path(path)
    {
        const QImage sheet(path);
        for (const QString &name : sheet.textKeys()) {
            const QStringList numbers = sheet.text(name).split(' ');
            if (numbers.size() == 4)
                m_pictures[name] = sheet.copy(
                    numbers[0].toInt(), numbers[1].toInt(), numbers[2].toInt(), numbers[3].toInt());
        }
    }

    QStringList names() const override { return m_pictures.keys(); }

    QImage picture(const QString &name) const override { return m_pictures.value(name); }

    bool store(const QString &name, const QImage &picture) override
    {
        m_pictures[name] = picture;
        m_pictures[name].setDevicePixelRatio(1);
        return write();
    }

    bool remove(const QString &name) override
    {
        if (m_pictures.remove(name) == 0)
            return false;
        return m_pictures.isEmpty() ? QFile::remove(m_path) : write();
    }

    QString place(const QString &name) const override { return m_path + ": " + name; }

private:
    bool write() const
    {
        constexpr int kWidth = 640;
        QMap<QString, QRect> places;
        QRect last; // in the current row
        QSize size;
        for (auto picture = m_pictures.begin(); picture != m_pictures.end(); ++picture) {
            QRect place(QPoint(last.right() + 1, last.top()), picture->size());
            if (place.right() >= kWidth && place.left() > 0)
                place.moveTopLeft({0, size.height()});
            places[picture.key()] = last = place;
            size = size.expandedTo({place.right() + 1, place.bottom() + 1});
        }
        QImage sheet(size, QImage::Format_RGB32);
        sheet.fill(Qt::black);
        QPainter painter(&sheet);
        for (auto place = places.begin(); place != places.end(); ++place) {
            painter.drawImage(place->topLeft(), m_pictures[place.key()]);
            sheet.setText(place.key(),
                QString("%1 %2 %3 %4")
                    .arg(place->x())
                    .arg(place->y())
                    .arg(place->width())
                    .arg(place->height()));
        }
        painter.end();
        return storePicture(sheet, m_path);
    }

    QString m_path;
    QMap<QString, QImage> m_pictures;
};

} // namespace

std::unique_ptr<StoredPictures> picturesInFolder(const QString &folder, const QString &family)
{
    return std::make_unique<PictureFolder>(folder, family);
}

std::unique_ptr<StoredPictures> picturesInSheet(const QString &path)
{
    return std::make_unique<PictureSheet>(path);
}
