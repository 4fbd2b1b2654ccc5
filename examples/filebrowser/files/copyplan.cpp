// SPDX-License-Identifier: MIT
#include "copyplan.h"

#include "nativefiles.h"
#include "nativename.h"

QString problemLine(const QByteArray &path, int error)
{
    const QByteArray name = path.mid(path.lastIndexOf('/') + 1);
    return fromNativeName(name) + QLatin1String(": ") + systemReason(error);
}

CopyPlan::CopyPlan(const QByteArray &source) : m_source(source)
{
    add(source);
}

void CopyPlan::add(const QByteArray &path)
{
    CopyItem item {path, path.mid(m_source.size()), CopyItem::Other, 0};
    if (const int error = describeItem(&item)) {
        m_problems += problemLine(path, error);
        return;
    }
    m_total += item.size + 1;
    m_items += item;
}

bool CopyPlan::openNextFolder()
{
    while (m_next < m_items.size() && m_items.at(m_next).kind != CopyItem::Folder)
        ++m_next;
    if (m_next == m_items.size())
        return false;
    m_folder = m_items.at(m_next++).from;
    if (const int error = openNames(m_folder, &m_names))
        m_problems += problemLine(m_folder, error);
    return true;
}

bool CopyPlan::step()
{
    if (!m_names)
        return openNextFolder();
    QByteArray name;
    const int error = nextName(m_names.get(), &name);
    if (name.isEmpty()) {
        if (error != 0)
            m_problems += problemLine(m_folder, error);
        m_names.reset();
        return true;
    }
    if (name != "." && name != "..")
        add(m_folder + '/' + name);
    return true;
}
