// SPDX-License-Identifier: MIT
#include <vemo/imagemanager.h>

#include "core/qtcompat_p.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>

namespace {

ImageManager::ImageType typeOf(QIcon::Mode mode, QIcon::State state)
{
    if (mode == QIcon::Disabled)
        return ImageManager::DISABLE;
    if (state == QIcon::On)
        return ImageManager::CLICK;
    return mode == QIcon::Active ? ImageManager::HOVER : ImageManager::NORMAL;
}

/// Draws what the catalogue has under a name at that time.
class ImageIconEngine : public QIconEngine
{
public:
    explicit ImageIconEngine(QString name) : m_name(std::move(name)) { }

    void paint(QPainter *painter, const QRect &rect, QIcon::Mode mode, QIcon::State state) override
    {
        const bool isFine = hasFineIcons();
        const qreal ratio =
            isFine && painter->device() ? painter->device()->devicePixelRatioF() : 1;
        painter->drawPixmap(rect, pixmap(rect.size() * ratio, mode, state));
    }

    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        const ImageManager::ImageType type = typeOf(mode, state);
        ImageManager &images = ImageManager::getInstance();
        const bool isDrawn = images.hasImage(m_name, type);
        // Asked for the normal one, the catalogue warns if there is none.
        QPixmap picture = images.getImage(m_name, isDrawn ? type : ImageManager::NORMAL);
        const QSize fitting = fitted(picture.size(), size);
        if (fitting != picture.size())
            picture = picture.scaled(fitting, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        const bool isOwn = isDrawn && mode != QIcon::Selected;
        return isOwn || mode == QIcon::Normal || picture.isNull() ? picture : styled(mode, picture);
    }

    QSize actualSize(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        return pixmap(size, mode, state).size();
    }

    QList<QSize> availableSizes(QIcon::Mode mode, QIcon::State state) VEMO_CONST_UNTIL_QT6 override
    {
        const ImageManager::ImageType type = typeOf(mode, state);
        ImageManager &images = ImageManager::getInstance();
        if (images.hasImage(m_name, type))
            return {images.getImage(m_name, type).size()};
        return {};
    }

    QString key() const override { return QStringLiteral("VemoImage"); }

    QIconEngine *clone() const override { return new ImageIconEngine(m_name); }

    void virtual_hook(int id, void *data) override
    {
        if (id == QIconEngine::IsNullHook)
            *static_cast<bool *>(data) =
                !ImageManager::getInstance().hasImage(m_name, ImageManager::NORMAL);
        else
            QIconEngine::virtual_hook(id, data);
    }

private:
    static QSize fitted(const QSize &size, const QSize &room)
    {
        const bool isTooLarge = size.width() > room.width() || size.height() > room.height();
        return isTooLarge ? size.scaled(room, Qt::KeepAspectRatio) : size;
    }

    static QPixmap styled(QIcon::Mode mode, const QPixmap &picture)
    {
        QStyleOption option(0);
        option.palette = QGuiApplication::palette();
        const QPixmap made = QApplication::style()->generatedIconPixmap(mode, picture, &option);
        return made.isNull() ? picture : made;
    }

    QString m_name;
};

} // namespace

QIcon getGlobalIcon(const QString &name)
{
    return QIcon(new ImageIconEngine(name));
}

QIcon getGlobalIcon(const char *name)
{
    return getGlobalIcon(QString::fromLatin1(name));
}
