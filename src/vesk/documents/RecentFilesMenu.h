#pragma once

#include <QMenu>
#include <QStringList>

/// The files that were opened or saved last, latest first, remembered in the settings. GUI thread.
class RecentFilesMenu : public QMenu
{
    Q_OBJECT

public:
    static constexpr int kMaximum = 12;

    explicit RecentFilesMenu(QWidget *parent = nullptr);

    void add(const QString &path);
    /// A file that could not be opened any more.
    void remove(const QString &path);

Q_SIGNALS:
    void fileChosen(const QString &path);

private:
    void store(const QStringList &paths);
    void rebuild();
};
