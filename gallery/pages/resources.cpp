// SPDX-License-Identifier: MIT
#include "gallery/commandline.h"
#include "gallery/languages.h"
#include "gallery/look.h"
#include "gallery/page.h"
#include "gallery/pages/pages.h"

#include <vemo/dpiinfo.h>
#include <vemo/filetypemap.h>
#include <vemo/uipathmanager.h>
#include <vemo/vemolocale.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>

namespace {

/// One extension for each type of file, and one that no type has.
const QStringList kExtensions {// clazy:exclude=non-pod-global-static
    "mdb", "ai", "mp3", "bkpi", "docx", "exe", "fla", "html", "idn", "jpg", "iso", "cpp", "pdf",
    "ppt", "psd", "swf", "ttf", "txt", "mp4", "xlsx", "zip", "other"};

constexpr int kPictureGap = 6; // design pixels

const char *const kSuffixes[] = {"", "_hover", "_click", "_disable"};

QStringList catalogueNames()
{
    QFile file(UIPathManager::getInstance().getPath("resource_path") + "/images.json");
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QJsonObject catalogue = QJsonDocument::fromJson(file.readAll()).object();
    const QJsonArray listed = catalogue["images"].toArray();
    QStringList names;
    for (const auto &name : listed)
        names << name.toString();
    names.sort();
    return names;
}

bool hasState(const QString &name, ImageManager::ImageType type)
{
    return QFile::exists(
        QString("%1/%2%3.png")
            .arg(ImageManager::getInstance().getImageFolder(), name, kSuffixes[type]));
}

/// The picture of a file type, without the extension that FileTypeMap gives it.
QString typePicture(const QString &extension, bool removed)
{
    return QFileInfo(FileTypeMap::getInstance().getFiletypeMapping(extension, removed))
        .completeBaseName();
}

QWidget *sideBySide(const QList<QWidget *> &pictures)
{
    auto *group = new QWidget;
    auto *layout = new QHBoxLayout(group);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(DPIinfo::scaled(kPictureGap));
    for (QWidget *picture : pictures)
        layout->addWidget(picture);
    return group;
}

QLabel *statePicture(const QString &name, ImageManager::ImageType type)
{
    QLabel *label = picture([=] { return getGlobalImage(name, type); });
    const bool isWhite = name.startsWith("check") || name.startsWith("radio");
    if (isWhite && type == ImageManager::NORMAL)
        label->setObjectName("accentGround");
    return label;
}

QWidget *statesOf(const QString &name)
{
    QList<QWidget *> pictures;
    for (const auto type :
        {ImageManager::NORMAL, ImageManager::HOVER, ImageManager::CLICK, ImageManager::DISABLE}) {
        if (hasState(name, type))
            pictures << statePicture(name, type);
    }
    return captioned(sideBySide(pictures), name);
}

/// The name of a value, in the same size, so that both share a baseline.
QLabel *nameOf(const QString &name)
{
    QLabel *label = text(name);
    label->setObjectName("valueName");
    return label;
}

void addScreen(Page &page)
{
    const DPIinfo &screen = DPIinfo::getInstance();
    page.addSection("Screen", "Measured once, when it is first asked for.");
    page.addTable({},
        {{nameOf("DPI factor"), text(QString::number(screen.getDPI(), 'g', 4))},
            {nameOf("Device pixel ratio"), text(QString::number(screen.getDPR(), 'g', 4))},
            {nameOf("28px in a style sheet"), text(screen.getScaledStyleSheet("28px"))}});
    page.addCode(R"(DPIinfo::getInstance().getDPI(); // 1.5 at 144 dpi
DPIinfo::getInstance().getScaledStyleSheet("min-height: 28px;");)");
}

/// A text that another look may change.
QLabel *currentText(const std::function<QString()> &make)
{
    QLabel *label = text(make());
    onThemeReload(label, [label, make] { label->setText(make()); });
    return label;
}

void addFolders(Page &page)
{
    const auto path = [](const char *key) {
        return currentText([key] { return UIPathManager::getInstance().getPath(key); });
    };
    const bool isLazy = page.options().pictures == ImageManager::LAZY_LOAD;
    page.addSection("Folders");
    page.addTable({},
        {{nameOf("resource_path"), path("resource_path")},
            {nameOf("user_data_path"), path("user_data_path")},
            {nameOf("Pictures"),
                currentText([] { return ImageManager::getInstance().getImageFolder(); })},
            {nameOf("Generated pictures"), text(ImageManager::getInstance().getTempImageFolder())},
            {nameOf("Pictures are loaded"), text(isLazy ? "on first use" : "at the start")}});
    page.addCode(R"(UIPathManager::getInstance().setPath("resource_path", ":/vemo/theme");
ImageManager::getInstance().initialize(ImageManager::LAZY_LOAD);)");
}

QWidget *languageCell(const Language &language, const QString &current)
{
    const bool isCurrent = current == language.code;
    auto *code = new QLabel(isCurrent ? QString("%1 ✓").arg(language.code) : language.code);
    code->setObjectName(isCurrent ? "currentCode" : "languageCode");
    if (isCurrent)
        code->setAccessibleName(QString("%1, the current language").arg(language.code));
    return captioned(code, language.name);
}

void addLanguages(Page &page)
{
    QList<QWidget *> cells;
    for (const Language &language : languages())
        cells << languageCell(language, page.options().language);
    page.addSection("Language codes",
        QString("The system's locale gives \"%1\"; this gallery speaks \"%2\".")
            .arg(VemoLocale::getInstance().getDefaultLanguage(), page.options().language));
    page.addGrid(5, cells);
    page.addCode("VemoLocale::getInstance().getDefaultLanguage();");
}

void addFileTypes(Page &page)
{
    QList<QWidget *> cells;
    for (const QString &extension : kExtensions) {
        const auto ofType = [extension](bool isRemoved) {
            return picture([=] { return getGlobalImage(typePicture(extension, isRemoved)); });
        };
        cells << captioned(sideBySide({ofType(false), ofType(true)}), extension);
    }
    page.addSection(
        "File types", "Each as a present and as a removed file, for one of its extensions.");
    page.addGrid(8, cells);
    page.addCode(
        R"(const QString icon = FileTypeMap::getInstance().getFiletypeMapping("docx", false);
label->setPixmap(getGlobalImage(QFileInfo(icon).baseName())); // "doc.png")");
}

QStringList withoutFileTypes(QStringList names)
{
    for (const QString &extension : kExtensions) {
        for (const bool removed : {false, true})
            names.removeAll(typePicture(extension, removed));
    }
    return names;
}

void addPictures(Page &page)
{
    QList<QWidget *> withStates;
    QList<QWidget *> single;
    const QStringList names = withoutFileTypes(catalogueNames());
    for (const QString &name : names) {
        const bool isSingle = !hasState(name, ImageManager::HOVER);
        (isSingle ? single : withStates) << statesOf(name);
    }
    page.addSection("Pictures with states", "At rest, under the pointer, pressed, disabled.");
    page.addGrid(5, withStates);
    page.addCode(R"(label->setPixmap(getGlobalImage("bt_add", ImageManager::HOVER));)");
    page.addSection("Other pictures", "A state that they lack shows the normal picture.");
    page.addGrid(5, single);
}

} // namespace

void buildResourcesPage(Page &page)
{
    page.addSummary("What the host registers once at its start and every widget looks up.");
    addScreen(page);
    addFolders(page);
    addLanguages(page);
    addPictures(page);
    addFileTypes(page);
}
