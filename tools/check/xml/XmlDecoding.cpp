#include "tools/check/xml/XmlDecoding.h"

#include <QRegularExpression>
#include <QString>
#include <QTextCodec>

#include <memory>

namespace Tobrix::Tools {

namespace {

/// The encoding that "<" gives away in the first bytes of a file without a byte-order mark.
const char *wideEncoding(const QByteArray &bytes)
{
    static const struct
    {
        QByteArray beginning;
        const char *encoding;
    } rows[] = {
        {QByteArray("\x3c\x00\x00\x00", 4), "UTF-32LE"},
        {QByteArray("\x00\x00\x00\x3c", 4), "UTF-32BE"},
        {QByteArray("\x3c\x00", 2), "UTF-16LE"},
        {QByteArray("\x00\x3c", 2), "UTF-16BE"},
    };
    for (const auto &row : rows) {
        if (bytes.startsWith(row.beginning)) {
            return row.encoding;
        }
    }
    return "UTF-8";
}

QByteArray declaredEncoding(const QByteArray &bytes)
{
    if (!bytes.startsWith("<?xml")) {
        return QByteArray();
    }
    static const QRegularExpression encoding(
        QStringLiteral("\\sencoding\\s*=\\s*[\"']([A-Za-z][A-Za-z0-9._-]*)"));
    const QByteArray declaration = bytes.left(bytes.indexOf('>') + 1);
    return encoding.match(QString::fromLatin1(declaration)).captured(1).toLatin1();
}

} // namespace

QString decodedXml(const QByteArray &bytes)
{
    const QTextCodec *codec = QTextCodec::codecForUtfText(bytes, nullptr);
    if (!codec) {
        codec = QTextCodec::codecForName(declaredEncoding(bytes));
    }
    if (!codec) {
        codec = QTextCodec::codecForName(wideEncoding(bytes));
    }
    return std::unique_ptr<QTextDecoder>(codec->makeDecoder())->toUnicode(bytes);
}

} // namespace Tobrix::Tools
