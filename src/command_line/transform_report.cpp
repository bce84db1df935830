#include "transform_report.h"

#include "console.h"

using registration::Transform;

namespace {

QJsonArray matrixToJson(const registration::Matrix &matrix)
{
    QJsonArray rows;
    for (size_t row = 0; row < 3; ++row)
        rows.append(QJsonArray{matrix[3 * row], matrix[3 * row + 1], matrix[3 * row + 2]});
    return rows;
}

} // namespace

QJsonArray command_line::transformsToJson(const QStringList &pictures,
                                          const std::vector<Transform> &transforms)
{
    QJsonArray list;
    for (size_t i = 0; i < transforms.size(); ++i) {
        const Transform &transform = transforms[i];
        list.append(QJsonObject{
            {QStringLiteral("picture"), pictures[int(i)]},
            {QStringLiteral("kind"), registration::kindName(transform.kind)},
            {QStringLiteral("matrix"), matrixToJson(transform.matrix)},
            {QStringLiteral("confidence"), transform.confidence},
            {QStringLiteral("residualPixels"), transform.residualPixels},
        });
    }
    return list;
}

QJsonObject command_line::areaToJson(QRect area)
{
    return {
        {QStringLiteral("x"), area.x()},
        {QStringLiteral("y"), area.y()},
        {QStringLiteral("width"), area.width()},
        {QStringLiteral("height"), area.height()},
    };
}

QString command_line::transformLines(const QStringList &pictures,
                                     const std::vector<Transform> &transforms)
{
    QString lines;
    for (size_t i = 0; i < transforms.size(); ++i) {
        const Transform &transform = transforms[i];
        lines += QStringLiteral("align   %1: %2, confidence %3, residual %4 pixels\n")
                     .arg(pictures[int(i)], registration::kindName(transform.kind))
                     .arg(transform.confidence, 0, 'f', 2)
                     .arg(transform.residualPixels, 0, 'f', 2);
    }
    return lines;
}

void command_line::warnOfUnaligned(const QStringList &pictures,
                                   const std::vector<Transform> &transforms)
{
    for (size_t i = 0; i < transforms.size(); ++i) {
        if (transforms[i].kind == registration::Kind::Unaligned)
            console::complain(pictures[int(i)], QStringLiteral("warning: it was left unaligned: ") +
                                                    registration::reasonText(transforms[i].reason));
    }
}
