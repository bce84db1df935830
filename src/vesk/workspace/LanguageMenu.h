#pragma once

#include <QMenu>

/// English and the languages of the tool's catalogues, each in its own words. The choice is
/// written to the settings and applies at the next start. GUI thread.
class LanguageMenu : public QMenu
{
    Q_OBJECT

public:
    explicit LanguageMenu(QWidget *parent = nullptr);

Q_SIGNALS:
    /// The user has chosen another language than the one set before.
    void languageChanged(const QString &nativeName);
};
