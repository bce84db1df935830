#include "ThemeMenu.h"
#include "editor_settings.h"

#include <QActionGroup>
#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QStyleFactory>

namespace {

const QLatin1String kDark("dark");
const QLatin1String kLight("light");

/// Greys without a tint, which would change how colours beside them look.
QPalette neutralPalette(int window, int base, int ink, int faint)
{
    const auto grey = [](int level) { return QColor(level, level, level); };
    QPalette palette(grey(window));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText})
        palette.setColor(role, grey(ink));
    palette.setColor(QPalette::Base, grey(base));
    palette.setColor(QPalette::AlternateBase, grey((base + window) / 2));
    palette.setColor(QPalette::ToolTipBase, grey(base));
    palette.setColor(QPalette::PlaceholderText, grey(faint));
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0x7e, 0xa6));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, grey(faint));
    return palette;
}

/// As it was before the first theme.
QString desktopStyle()
{
    static const QString name = QApplication::style()->objectName();
    return name;
}

} // namespace

ThemeMenu::ThemeMenu(QWidget *parent)
    : QMenu(tr("&Theme"), parent)
{
    add(tr("&As the Desktop"), {});
    add(tr("&Dark"), kDark);
    add(tr("&Light"), kLight);
    auto *group = new QActionGroup(this);
    const QList<QAction *> all = actions();
    for (QAction *action : all) {
        group->addAction(action);
        action->setChecked(action->data().toString() == settings::theme());
    }
}

void ThemeMenu::add(const QString &text, const QString &theme)
{
    QAction *action = addAction(text);
    action->setCheckable(true);
    action->setData(theme);
    connect(action, &QAction::triggered, this, [theme] {
        settings::setTheme(theme);
        applySettings();
    });
}

void ThemeMenu::applySettings()
{
    const QString theme = settings::theme();
    const QString before = desktopStyle();
    if (theme != kDark && theme != kLight) {
        QApplication::setStyle(before);
        QApplication::setPalette(QPalette());
        return;
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(theme == kDark ? neutralPalette(0x33, 0x26, 0xe0, 0x80)
                                            : neutralPalette(0xe8, 0xfa, 0x14, 0x90));
}
