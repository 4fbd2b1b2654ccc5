// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/browserwindow.h>

#include <QString>

/// Which page of the online help to show.
///
///     HelpContext context;
///     context.lang = "enu";
///     context.link = "backup.html";
///
/// \image html help-the-local-help.png
struct HelpContext
{
    QString lang; ///< Three-letter language code, as VemoLocale::getDefaultLanguage() gives it.
    QString helpPath; ///< Root folder of the local help, read when the online help can't be.
    QString link; ///< File name of the page, relative to the language's folder.
    QString section; ///< Help section that the page belongs to; only the online help asks for it.
    QString version = QStringLiteral("1.0"); ///< Version of the help; again only online.
};

/// Shows one page of the online help, or its local copy when the knowledge base can't be reached.
///
/// The page is fetched from the knowledge base as soon as the window is made; showing the window is
/// the caller's. The local copy is read from helpPath/lang/link, its pictures from helpPath/lang;
/// where there is none the window stays empty. The codes of VemoLocale become those of the help:
/// "deu", "esn" and "fra" are "ger", "spn" and "fre" there, and languages without help of their own
/// get "enu".
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
    /// Names the knowledge base for the windows to come: scheme, host and port of url; its path is
    /// always the library's own. Only https is taken: anything else is refused with a warning.
    static void setKnowledgeBaseUrl(const QUrl &url);
    /// Scheme, host and port of the knowledge base; the value of VEMO_KNOWLEDGEBASE_URL at build
    /// time until a host sets another.
    static QUrl knowledgeBaseUrl();

    /// Starts to fetch the page at once; the context is copied. Style files must be loaded. The
    /// window belongs to parent; without one it is the caller's to delete.
    explicit HelpWindow(const HelpContext &context, QWidget *parent = nullptr);

private:
    void retrieveHelpContent();
    void fallbackOffline() override;

    HelpContext m_context;
    QString m_local_folder;
};
