// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/browserwindow.h>

#include <QString>

/// Identifies a page of the online help.
///
///     HelpContext context;
///     context.lang = "enu";
///     context.link = "backup.html";
///
/// \image html help-the-local-help.png
struct HelpContext
{
    QString lang; ///< Three-letter language code, as returned by VemoLocale::getDefaultLanguage().
    QString helpPath; ///< Root folder of the local help, used if the online help is unreachable.
    QString link; ///< File name of the page, relative to the language's folder.
    QString section; ///< Help section of the page; only used for the online help.
    QString version = QStringLiteral("1.0"); ///< Version of the help; only used online.
};

/// Shows one page of the online help, or its local copy if the knowledge base cannot be reached.
///
/// The constructor starts to fetch the page; the caller shows the window. The local copy is read
/// from helpPath/lang/link and its pictures from helpPath/lang; if it is missing, the window stays
/// empty. Codes of VemoLocale are converted to those of the help: "deu", "esn" and "fra" become
/// "ger", "spn" and "fre", and languages without help become "enu".
///
///     HelpContext context;
///     context.lang = VemoLocale::getInstance().getDefaultLanguage();
///     context.helpPath = QCoreApplication::applicationDirPath() + QLatin1String("/help");
///     context.link = QStringLiteral("backup.html");
///     HelpWindow(context, this).exec();
///
/// \image html help-the-local-help.png
class VEMO_EXPORT HelpWindow : public BrowserWindow
{
    Q_OBJECT

public:
    /// Sets the knowledge base for windows created later: scheme, host and port of url; the path is
    /// always that of the library. Only https is accepted; any other url is ignored with a warning.
    static void setKnowledgeBaseUrl(const QUrl &url);
    /// Scheme, host and port of the knowledge base. The default is the value of
    /// VEMO_KNOWLEDGEBASE_URL at build time.
    static QUrl knowledgeBaseUrl();

    /// Starts to fetch the page; the context is copied. Requires: style files. The window belongs
    /// to parent; if that is null, the caller must delete it.
    explicit HelpWindow(const HelpContext &context, QWidget *parent = nullptr);

private:
    void retrieveHelpContent();
    void fallbackOffline() override;
    QUrl onlineAddress(const QString &link) const;
    QUrl localAddress(const QString &link) const;
    QVector<QUrl> addressesOf(const QUrl &target) const;

    HelpContext m_context;
    QString m_local_folder;
};
