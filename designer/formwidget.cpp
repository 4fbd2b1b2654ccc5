// SPDX-License-Identifier: MIT
#include "designer/formwidget.h"

#include "designer/themestart.h"

#include <vemo/dpiinfo.h>

#include <QIcon>

namespace {

QString geometry(const QSize &size)
{
    if (!size.isValid())
        return {};
    return QStringLiteral("<property name=\"geometry\"><rect><x>0</x><y>0</y>"
                          "<width>%1</width><height>%2</height></rect></property>")
        .arg(DPIinfo::scaled(size.width()))
        .arg(DPIinfo::scaled(size.height()));
}

/// The description of text editors for Qt Designer, with the element names that it expects.
QString stringEditing(const char *texts)
{
    QString xml;
    const QStringList all = QString::fromLatin1(texts).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &text : all) {
        const QStringList parts = text.split(QLatin1Char(':'));
        const QString notr = parts.size() > 2 ? QStringLiteral(" notr=\"true\"") : QString();
        xml += QStringLiteral("<stringpropertyspecification name=\"%1\"%2 type=\"%3\"/>")
                   .arg(parts[0], notr, parts[1]);
    }
    return xml;
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
            QLatin1String(m_info.baseName), stringEditing(m_info.stringEditing));
}

QWidget *FormWidget::createWidget(QWidget *parent)
{
    return startTheme() ? m_info.create(parent) : nullptr;
}
