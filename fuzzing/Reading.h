#pragma once

#include <QJsonObject>
#include <QString>

namespace Tobrix::Templates {
class AbstractTemplateXmlReader;
} // namespace Tobrix::Templates

namespace Tobrix::Fuzzing {

/// The raw record of a file, and the template built from it.
struct Reading
{
    QJsonObject record;
    QJsonObject catalogTemplate;
};

/// Reads a file and builds its template.
/// @param isCurrentFormat whether the reader is of the current format
Reading readingOf(Templates::AbstractTemplateXmlReader &reader, const QString &fileName,
                  bool isCurrentFormat);

/// Aborts when two readings differ, and prints the first different line.
/// @param actualName what the readings are of, in words
void requireSame(const char *actualName, const Reading &actual, const char *expectedName,
                 const Reading &expected);

} // namespace Tobrix::Fuzzing
