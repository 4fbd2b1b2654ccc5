// SPDX-License-Identifier: MIT
#include "designer/pluginfolder.h"

#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include <QCoreApplication>
#include <QPluginLoader>

namespace {

/// A loader that really unloads, which QPluginLoader prevents by default.
class UnloadingLoader : public QPluginLoader
{
public:
    UnloadingLoader() : QPluginLoader(QStringLiteral(VEMO_PLUGINS "/designer/libvemowidgets.so"))
    {
        setLoadHints({});
    }
};

QPluginLoader &loader()
{
    static UnloadingLoader loader;
    return loader;
}

} // namespace

void useBuiltPlugins()
{
    QCoreApplication::setLibraryPaths({VEMO_PLUGINS});
}

QList<QDesignerCustomWidgetInterface *> formWidgets()
{
    const auto *collection =
        qobject_cast<QDesignerCustomWidgetCollectionInterface *>(loader().instance());
    return collection ? collection->customWidgets() : QList<QDesignerCustomWidgetInterface *>();
}

QStringList formWidgetNames()
{
    QStringList names;
    for (const QDesignerCustomWidgetInterface *widget : formWidgets())
        names << widget->name();
    names.sort();
    return names;
}

QDesignerCustomWidgetInterface *formWidget(const QString &name)
{
    for (QDesignerCustomWidgetInterface *widget : formWidgets()) {
        if (widget->name() == name)
            return widget;
    }
    return nullptr;
}

bool unloadPlugin()
{
    return loader().unload() && !loader().isLoaded();
}
