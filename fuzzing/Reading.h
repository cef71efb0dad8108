#pragma once

#include <QJsonObject>
#include <QString>

namespace Tobrix::Templates {
class AbstractTemplateXmlReader;
} // namespace Tobrix::Templates

namespace Tobrix::Fuzzing {

/// What a reader finds in a file, and what is built of it.
struct Reading
{
    QJsonObject record;
    QJsonObject catalogTemplate;
};

/// Reads a file and builds its template.
/// @param isCurrentFormat whether the reader is of the current format
Reading readingOf(Templates::AbstractTemplateXmlReader &reader, const QString &fileName,
                  bool isCurrentFormat);

/// Ends the program when two readings differ, and prints the first line in which they do.
/// @param actualName what the readings are of, in words
void requireSame(const char *actualName, const Reading &actual, const char *expectedName,
                 const Reading &expected);

} // namespace Tobrix::Fuzzing
