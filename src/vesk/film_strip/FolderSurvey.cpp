#include "FolderSurvey.h"

#include <SceneComparison.h>
#include <bracket_finder.h>
#include <folder_shots.h>
#include <metadata_reader.h>
#include <parallel_rows.h>
#include <picture_rating.h>

#include <algorithm>
#include <vector>

namespace {

PictureNote noteOf(const QString &path)
{
    PictureNote note;
    note.shot = brackets::readShot(path).shot;
    const QByteArray xmp = metadata::read(path).xmp;
    note.mark = result_mark::in(xmp);
    note.stars = rating::in(xmp);
    return note;
}

QHash<QString, PictureNote> notesOf(const QList<FolderEntry> &files,
                                    const std::atomic<bool> &cancelled)
{
    std::vector<PictureNote> notes(size_t(files.size()));
    parallel::each(int(files.size()), [&](int i) {
        if (!cancelled)
            notes[size_t(i)] = noteOf(files[i].path);
    });
    QHash<QString, PictureNote> byPath;
    for (qsizetype i = 0; i < files.size(); ++i)
        byPath.insert(files[i].path, notes[size_t(i)]);
    return byPath;
}

/// What the camera itself calls the stops where it tells, or else what the light says.
std::vector<std::optional<double>> stopsOf(const Bracket &bracket)
{
    const std::optional<double> &bias = bracket.shots.front().exposureBias;
    const bool isByBias =
        bias && std::any_of(bracket.shots.cbegin(), bracket.shots.cend(),
                            [&bias](const Shot &shot) { return shot.exposureBias != bias; });
    std::vector<std::optional<double>> stops;
    std::vector<double> known;
    for (const Shot &shot : bracket.shots) {
        stops.push_back(isByBias ? shot.exposureBias : shot.exposureStops());
        if (stops.back())
            known.push_back(*stops.back());
    }
    if (isByBias || known.empty())
        return stops;
    const auto middle = known.begin() + std::ptrdiff_t(known.size() / 2);
    std::nth_element(known.begin(), middle, known.end());
    for (std::optional<double> &one : stops)
        if (one)
            *one -= *middle;
    return stops;
}

void add(const Bracket &bracket, FolderNotes &notes)
{
    const std::vector<std::optional<double>> stops = stopsOf(bracket);
    QStringList paths;
    for (size_t i = 0; i < bracket.shots.size(); ++i) {
        const auto note = notes.pictures.find(bracket.shots[i].path);
        if (note == notes.pictures.end())
            continue; // it came after the folder was listed
        note->bracket = int(notes.brackets.size());
        note->stops = stops[i];
        paths += bracket.shots[i].path;
    }
    notes.brackets += paths;
}

} // namespace

FolderNotes survey::of(const QString &folder, const QList<FolderEntry> &files,
                       const std::atomic<bool> &cancelled)
{
    FolderNotes notes{notesOf(files, cancelled), {}};
    FolderRules rules;
    rules.cancelled = &cancelled;
    std::vector<Shot> shots =
        brackets::readFolder(folder, rules, [](const auto &, const auto &) {});
    SceneComparison scenes;
    const Grouping found =
        brackets::find(std::move(shots), {}, [&](const Shot &one, const Shot &other) {
            return cancelled ? brackets::Scene::Unknown : scenes.compare(one, other);
        });
    for (const Bracket &bracket : found.brackets)
        add(bracket, notes);
    return notes;
}

FolderSurvey::FolderSurvey(QObject *parent)
    : QObject(parent)
{
    worker.setMaxThreadCount(1);
}

FolderSurvey::~FolderSurvey()
{
    if (current)
        *current = true;
    worker.clear();
    worker.waitForDone();
}

void FolderSurvey::start(const QString &folder, const QList<FolderEntry> &files)
{
    run(folder, files);
}

void FolderSurvey::startFolder(const QString &folder)
{
    run(folder, std::nullopt);
}

void FolderSurvey::run(const QString &folder, const std::optional<QList<FolderEntry>> &files)
{
    if (current)
        *current = true;
    worker.clear();
    current = std::make_shared<std::atomic<bool>>(false);
    worker.start([this, folder, files, cancelled = current] {
        const FolderNotes notes =
            survey::of(folder, files ? *files : pictures::inFolder(folder), *cancelled);
        QMetaObject::invokeMethod(
            this,
            [this, notes, cancelled] {
                if (!*cancelled)
                    Q_EMIT ready(notes);
            },
            Qt::QueuedConnection);
    });
}
