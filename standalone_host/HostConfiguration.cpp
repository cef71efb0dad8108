#include "standalone_host/HostData_p.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>
#include <limits>

namespace Tobrix::Standalone {

namespace {

bool isInt(const QJsonValue &value)
{
    using Limits = std::numeric_limits<int>;
    const double number = value.toDouble(std::numeric_limits<double>::quiet_NaN());
    return number >= Limits::min() && number <= Limits::max() && std::floor(number) == number;
}

/// The reason why the document cannot be used; empty when it was taken over.
QString takeOver(const QJsonDocument &document, HostConfiguration &configuration)
{
    if (!document.isObject()) {
        return QStringLiteral("the document must be an object with \"templates\" and \"tables\"");
    }
    const QJsonObject root = document.object();
    for (auto it = root.begin(); it != root.end(); ++it) {
        if (it.key() != QLatin1String("templates") && it.key() != QLatin1String("tables")) {
            return QStringLiteral("\"%1\" is neither \"templates\" nor \"tables\"").arg(it.key());
        }
        if (!it.value().isObject()) {
            return QStringLiteral("\"%1\" must be an object").arg(it.key());
        }
    }
    const QJsonObject templates = root.value(QLatin1String("templates")).toObject();
    for (auto it = templates.begin(); it != templates.end(); ++it) {
        if (!it.value().isString()) {
            return QStringLiteral("the type of template \"%1\" must be a text").arg(it.key());
        }
        configuration.templates.insert(it.key(), it.value().toString());
    }
    const QJsonObject tables = root.value(QLatin1String("tables")).toObject();
    for (auto it = tables.begin(); it != tables.end(); ++it) {
        if (!isInt(it.value())) {
            return QStringLiteral("the type of table \"%1\" must be a whole number").arg(it.key());
        }
        configuration.tables.insert(it.key(), it.value().toInt());
    }
    return QString();
}

/// Line and column, from 1, of an offset into UTF-8 text.
QString placeOf(const QByteArray &text, int offset)
{
    const QByteArray before = text.left(offset);
    const int lineStart = before.lastIndexOf('\n') + 1;
    return QStringLiteral("line %1, column %2")
        .arg(before.count('\n') + 1)
        .arg(QString::fromUtf8(before.mid(lineStart)).size() + 1);
}

} // namespace

bool readConfiguration(const QString &jsonFile, HostConfiguration &configuration, QString &errorMessage)
{
    const auto fail = [&](const QString &reason) {
        errorMessage = QStringLiteral("%1: %2").arg(jsonFile, reason);
        return false;
    };
    QFile file(jsonFile);
    // Opening a pipe would wait for its writer.
    if (file.exists() && !QFileInfo(file).isFile()) {
        return fail(QStringLiteral("is not a regular file"));
    }
    if (!file.open(QIODevice::ReadOnly)) {
        return fail(file.errorString());
    }
    const QByteArray text = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        return fail(file.errorString());
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError) {
        return fail(
            QStringLiteral("not valid JSON, %1: %2").arg(placeOf(text, error.offset), error.errorString()));
    }
    const QString reason = takeOver(document, configuration);
    return reason.isEmpty() || fail(reason);
}

} // namespace Tobrix::Standalone
