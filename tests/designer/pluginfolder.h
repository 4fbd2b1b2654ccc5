// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

class QDesignerCustomWidgetInterface;

/// Lets Qt look for plug-ins in the build's folder only, and not among those of this machine.
void useBuiltPlugins();

/// What the plug-in offers, loaded where it wasn't; empty where it can't be.
QList<QDesignerCustomWidgetInterface *> formWidgets();
QStringList formWidgetNames();
QDesignerCustomWidgetInterface *formWidget(const QString &name);

bool unloadPlugin();
