// SPDX-License-Identifier: MIT
#include "designer/formwidget.h"

#include "core/scaling_p.h"
#include "designer/themestart.h"

#include <QIcon>

namespace {

QString geometry(const QSize &size)
{
    if (!size.isValid())
        return {};
    return QStringLiteral("<property name=\"geometry\"><rect><x>0</x><y>0</y>"
                          "<width>%1</width><height>%2</height></rect></property>")
        .arg(scaled(size.width()))
        .arg(scaled(size.height()));
}

} // namespace

FormWidget::FormWidget(const FormWidgetInfo &info, QObject *parent) : QObject(parent), m_info(info)
{
}

QString FormWidget::name() const
{
    return QLatin1String(m_info.className);
}

QString FormWidget::group() const
{
    return QStringLiteral("Vemo Widgets");
}

QString FormWidget::toolTip() const
{
    return QLatin1String(m_info.toolTip);
}

QString FormWidget::whatsThis() const
{
    return QLatin1String(m_info.whatsThis);
}

QString FormWidget::includeFile() const
{
    return QStringLiteral("<vemo/%1>").arg(name());
}

QIcon FormWidget::icon() const
{
    return QIcon(QStringLiteral(":/vemo/designer/%1.png").arg(name()));
}

bool FormWidget::isContainer() const
{
    // A foot bar, too, gets its widgets from code: what a form lays into it would stay outside its
    // layout.
    return false;
}

QString FormWidget::domXml() const
{
    QString objectName = name();
    objectName[0] = objectName.at(0).toLower();
    return QStringLiteral("<ui language=\"c++\"><widget class=\"%1\" name=\"%2\">%3%4</widget>"
                          "<customwidgets><customwidget><class>%1</class><extends>%5</extends>"
                          "<propertyspecifications>%6</propertyspecifications>"
                          "</customwidget></customwidgets></ui>")
        .arg(name(), objectName, geometry(m_info.size), QLatin1String(m_info.properties),
            QLatin1String(m_info.baseName), QLatin1String(m_info.stringEditing));
}

QWidget *FormWidget::createWidget(QWidget *parent)
{
    return startTheme() ? m_info.create(parent) : nullptr;
}
