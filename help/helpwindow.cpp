// SPDX-License-Identifier: MIT
#include <vemo/helpwindow.h>

#include "core/logging_p.h"
#include "core/qtcompat_p.h"
#include "core/resourcefile_p.h"
#include "help/helplimits_p.h"
#include "help/htmltextbrowser_p.h"

#include <QFile>
#include <QTextStream>
#include <QUrlQuery>

namespace {

/// The language code used by the help for a code of VemoLocale.
QString helpLanguage(const QString &lang)
{
    static const QMap<QString, QString> codes {
        {QStringLiteral("deu"), QStringLiteral("ger")},
        {QStringLiteral("esn"), QStringLiteral("spn")},
        {QStringLiteral("fra"), QStringLiteral("fre")},
    };
    static const QStringList languagesWithoutHelp {QStringLiteral("dan"), QStringLiteral("sve"),
        QStringLiteral("hun"), QStringLiteral("trk"), QStringLiteral("nor"), QStringLiteral("ptg"),
        QStringLiteral("ptb"), QStringLiteral("tha")};
    return languagesWithoutHelp.contains(lang) ? QStringLiteral("enu") : codes.value(lang, lang);
}

QUrl &knowledgeBase()
{
    static QUrl url(QStringLiteral(VEMO_KNOWLEDGEBASE_URL));
    return url;
}

} // namespace

void HelpWindow::setKnowledgeBaseUrl(const QUrl &url)
{
    if (!url.isValid() || url.scheme() != QLatin1String("https") || url.host().isEmpty()) {
        qCWarning(vemoLog) << "Knowledge base is not an https address" << url.toString();
        return;
    }
    QUrl base;
    base.setScheme(url.scheme());
    base.setHost(url.host());
    base.setPort(url.port());
    knowledgeBase() = base;
}

QUrl HelpWindow::knowledgeBaseUrl()
{
    return knowledgeBase();
}

HelpWindow::HelpWindow(const HelpContext &context, QWidget *parent)
    : BrowserWindow(parent), m_context(context)
{
    m_context.lang = helpLanguage(m_context.lang);
    retrieveHelpContent();
}

void HelpWindow::retrieveHelpContent()
{
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("action"), QStringLiteral("findHelpFile"));
    query.addQueryItem(QStringLiteral("section"), m_context.section);
    query.addQueryItem(QStringLiteral("lang"), m_context.lang);
    query.addQueryItem(QStringLiteral("link"), m_context.link);
    query.addQueryItem(QStringLiteral("unique"), QStringLiteral("kestrava_utility_help"));
    query.addQueryItem(QStringLiteral("version"), m_context.version);
    QUrl url = knowledgeBase();
    url.setPath(QStringLiteral("/cgi/knowledgebase/"));
    url.setQuery(query.toString());
    reload(url);
}

void HelpWindow::fallbackOffline()
{
    m_local_folder = m_context.helpPath + QLatin1Char('/') + m_context.lang;
    m_text_browser->setSearchPaths({m_local_folder});
    QFile file(m_local_folder + QLatin1Char('/') + m_context.link);
    // A pipe or a device counts as missing, because it might be endless.
    if (!isResourceFile(QFileInfo(file), kMaxPageBytes) || !file.open(QIODevice::ReadOnly))
        return;
    QTextStream stream(&file);
    setUtf8(&stream);
    // The page that remains if this one is refused keeps its origin and the rights that go with it.
    const QUrl earlier = m_text_browser->pageUrl();
    m_text_browser->setPageUrl(QUrl::fromLocalFile(file.fileName()));
    if (!m_text_browser->showContent(stream.readAll()))
        m_text_browser->setPageUrl(earlier);
}
