// SPDX-License-Identifier: MIT
#include <vemo/helpwindow.h>

#include "core/logging_p.h"
#include "help/htmltextbrowser_p.h"
#include "help/localpage_p.h"

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

QString fileNameOf(const QUrl &target)
{
    return target.path(QUrl::FullyDecoded);
}

QUrl withAnchorOf(const QUrl &target, QUrl url)
{
    if (target.hasFragment())
        url.setFragment(target.fragment());
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
    m_addresses = [this](const QUrl &target) { return addressesOf(target); };
    retrieveHelpContent();
}

void HelpWindow::retrieveHelpContent()
{
    reload(onlineAddress(m_context.link));
}

QUrl HelpWindow::onlineAddress(const QString &link) const
{
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("action"), QStringLiteral("findHelpFile"));
    query.addQueryItem(QStringLiteral("section"), m_context.section);
    query.addQueryItem(QStringLiteral("lang"), m_context.lang);
    query.addQueryItem(QStringLiteral("link"), link);
    query.addQueryItem(QStringLiteral("unique"), QStringLiteral("kestrava_utility_help"));
    query.addQueryItem(QStringLiteral("version"), m_context.version);
    QUrl url = knowledgeBase();
    url.setPath(QStringLiteral("/cgi/knowledgebase/"));
    url.setQuery(query.toString());
    return url;
}

QUrl HelpWindow::localAddress(const QString &link) const
{
    return QUrl::fromLocalFile(
        m_context.helpPath + QLatin1Char('/') + m_context.lang + QLatin1Char('/') + link);
}

QVector<QUrl> HelpWindow::addressesOf(const QUrl &target) const
{
    return {withAnchorOf(target, onlineAddress(target.path())),
        withAnchorOf(target, localAddress(fileNameOf(target)))};
}

void HelpWindow::fallbackOffline()
{
    m_local_folder = m_context.helpPath + QLatin1Char('/') + m_context.lang;
    m_text_browser->setSearchPaths({m_local_folder});
    const QString link = m_target.isEmpty() ? m_context.link : fileNameOf(m_target);
    QString html;
    if (!readLocalPage(m_local_folder + QLatin1Char('/') + link, &html))
        return;
    m_text_browser->showPage(withAnchorOf(m_target, localAddress(link)), html);
}
