#include "LanguageMenu.h"
#include "language_choice.h"

#include <VeskGlobalSettings.h>

#include <QActionGroup>

#include <array>

namespace {

struct Language
{
    const char *locale; // key "language" of the settings; empty for the source texts
    const char *nativeName;
};

constexpr std::array<Language, 8> kLanguages{{{"", "English"},
                                              {"de_DE", "Deutsch"},
                                              {"es_ES", "Español"},
                                              {"fr_FR", "Français"},
                                              {"ja_JP", "日本語"},
                                              {"ko_KR", "한국어"},
                                              {"zh_CN", "简体中文"},
                                              {"zh_TW", "繁體中文"}}};

} // namespace

LanguageMenu::LanguageMenu(QWidget *parent)
    : QMenu(tr("&Language"), parent)
{
    VeskGlobalSettings *settings = VeskGlobalSettings::getInstance();
    auto *group = new QActionGroup(this);
    for (const Language &language : kLanguages) {
        const QString locale = QLatin1String(language.locale);
        const QString name = QString::fromUtf8(language.nativeName);
        QAction *action = group->addAction(name);
        action->setCheckable(true);
        action->setChecked(settings->language() == locale);
        connect(action, &QAction::triggered, this, [this, settings, locale, name] {
            const bool isOther = settings->language() != locale;
            language_choice::choose(locale);
            if (isOther)
                Q_EMIT languageChanged(name);
        });
        addAction(action);
    }
}
