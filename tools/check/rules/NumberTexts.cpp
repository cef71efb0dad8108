#include "tools/check/rules/NumberTexts.h"

#include <QRegularExpression>

namespace Tobrix::Tools {

bool isWholeNumberText(const QString &text)
{
    static const QRegularExpression number(QStringLiteral("^\\s*[+-]?[0-9]+\\s*$"));
    return number.match(text).hasMatch();
}

bool isRealNumberText(const QString &text)
{
    static const QRegularExpression number(
        QStringLiteral("^\\s*[+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?\\s*$"));
    return number.match(text).hasMatch();
}

} // namespace Tobrix::Tools
