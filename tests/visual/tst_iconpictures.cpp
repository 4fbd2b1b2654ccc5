// SPDX-License-Identifier: MIT
#include "core/scaling_p.h"
#include "visual/baselinetest.h"

#include <vemo/defaulttheme.h>
#include <vemo/imagemanager.h>

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QPainter>

namespace {

constexpr int kCell = 20; // design pixels
constexpr int kColumns = 12;

QStringList catalogue(const QString &pattern)
{
    QFile file(":/vemo/theme/images.json");
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList names;
    const QJsonArray array = QJsonDocument::fromJson(file.readAll())["images"].toArray();
    for (const QJsonValue &name : array)
        names.append(name.toString());
    names.sort();
    return names.filter(QRegularExpression(pattern));
}

/// Draws pictures as any widget does, in rows, one beside the other.
class PictureGrid : public QWidget
{
public:
    PictureGrid(const QStringList &names, ImageManager::ImageType type)
        : m_names(names), m_type(type)
    {
        const int rows = (names.size() + kColumns - 1) / kColumns;
        setFixedSize(scaled(kCell) * kColumns, scaled(kCell) * rows);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), defaultThemeColor("surface"));
        const int cell = scaled(kCell);
        for (int i = 0; i < m_names.size(); ++i)
            painter.drawPixmap(i % kColumns * cell + 1, i / kColumns * cell + 1,
                getGlobalImage(m_names.at(i), m_type));
    }

private:
    QStringList m_names;
    ImageManager::ImageType m_type;
};

void addGrid(Looks &looks, const QString &name, const QString &pattern,
    ImageManager::ImageType type = ImageManager::NORMAL)
{
    addStates(
        looks, name, [=] { return new PictureGrid(catalogue(pattern), type); }, {State::Rest});
}

} // namespace

class IconPictures : public BaselineTest
{
    Q_OBJECT

public:
    IconPictures() : BaselineTest("icon") { }

protected:
    Looks looks() const override;
};

Looks IconPictures::looks() const
{
    // Those with states, but the wide one, which would run into its neighbour.
    const QString withStates = "^(arrow|menu|sort|tree)_|^bt_(?!search_dropdown)";
    Looks looks;
    addGrid(looks, "normal", withStates);
    addGrid(looks, "hover", withStates, ImageManager::HOVER);
    addGrid(looks, "click", withStates, ImageManager::CLICK);
    addGrid(looks, "disable", withStates, ImageManager::DISABLE);
    addGrid(looks, "file-types", "^(?!app_|bg_|bt_|check|icon_|radio)[a-z]+$");
    addGrid(looks, "removed", "_removed$");
    return looks;
}

VEMO_TEST_MAIN(IconPictures)
#include "tst_iconpictures.moc"
