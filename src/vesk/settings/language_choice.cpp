#include "language_choice.h"

#include <VeskGlobalSettings.h>

#include <QLocale>
#include <QVariant>

#include <algorithm>

namespace {

const QLatin1String kLanguage("language");
/// That nobody chose what stands there.
const QLatin1String kIsOfDesktop("editor/languageOfDesktop");

bool isChosen(const VeskGlobalSettings &settings)
{
    return settings.value(kLanguage).isValid() && !settings.value(kIsOfDesktop).toBool();
}

/// Whoever reads one of the two scripts of Chinese may not read the other; countries do not matter.
bool isRead(const QLocale &locale, const QLocale &text)
{
    return locale.language() == text.language() && locale.script() == text.script();
}

} // namespace

QStringList language_choice::translated()
{
    return {QStringLiteral("de_DE"), QStringLiteral("es_ES"), QStringLiteral("fr_FR"),
            QStringLiteral("ja_JP"), QStringLiteral("ko_KR"), QStringLiteral("zh_CN"),
            QStringLiteral("zh_TW")};
}

QString language_choice::languageFor(const QStringList &desktop)
{
    const QStringList texts = translated();
    for (const QString &wanted : desktop) {
        const QLocale locale(wanted);
        if (locale.language() == QLocale::English)
            return {};
        const auto found = std::find_if(texts.begin(), texts.end(), [&](const QString &text) {
            return isRead(locale, QLocale(text));
        });
        if (found != texts.end())
            return *found;
    }
    return {};
}

QString language_choice::atStart(const QStringList &desktop)
{
    VeskGlobalSettings *settings = VeskGlobalSettings::getInstance();
    if (isChosen(*settings))
        return settings->language();
    const QString language = languageFor(desktop);
    if (language != settings->language()) {
        settings->setLanguage(language);
        settings->setValue(kIsOfDesktop, true);
    }
    return language;
}

void language_choice::choose(const QString &localeName)
{
    VeskGlobalSettings *settings = VeskGlobalSettings::getInstance();
    settings->setValue(kIsOfDesktop, {});
    settings->setLanguage(localeName);
}
