// SPDX-License-Identifier: MIT
#include "designer/widgetcollection.h"

#include "designer/formwidget.h"
#include "designer/widgetlist.h"

WidgetCollection::WidgetCollection(QObject *parent) : QObject(parent)
{
    for (const FormWidgetInfo &info : widgetList())
        m_widgets.append(new FormWidget(info, this));
}
