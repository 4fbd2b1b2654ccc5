// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QDesignerCustomWidgetInterface;

/// Makes Qt search for plug-ins only in the build folder, not among those installed.
void useBuiltPlugins();

/// The widgets of the plug-in, which is loaded if necessary; empty if it cannot be loaded.
QList<QDesignerCustomWidgetInterface *> formWidgets();
QStringList formWidgetNames();
QDesignerCustomWidgetInterface *formWidget(const QString &name);

bool unloadPlugin();
