#include "xml/XmlDecoding_p.h"

#include <QRegularExpression>
#include <QString>
#include <QTextCodec>

#include <memory>

namespace Tobrix::Templates {

namespace {

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

const QTextCodec &codecOf(const QByteArray &bytes)
{
    const QTextCodec *codec = QTextCodec::codecForUtfText(bytes, nullptr);
    if (!codec) {
        codec = QTextCodec::codecForName(declaredEncoding(bytes));
    }
    const QByteArray wide = wideEncoding(bytes);
    return codec ? *codec : *QTextCodec::codecForName(wide.isEmpty() ? QByteArray("UTF-8") : wide);
}

/// The text of a file's first bytes, up to the last complete character.
struct Beginning
{
    Beginning(const QTextCodec &codec, const QByteArray &bytes, int size)
        : text(codec.toUnicode(bytes.constData(), size, &state))
    {
    }

    bool isSound() const { return state.invalidChars == 0; }

    QTextCodec::ConverterState state;
    QString text;
};

} // namespace

QByteArray wideEncoding(const QByteArray &bytes)
{
    static const struct
    {
        QByteArray beginning;
        QByteArray encoding;
    } marks[] = {
        {QByteArray("\x00\x00\xfe\xff", 4), "UTF-32"},   {QByteArray("\xff\xfe\x00\x00", 4), "UTF-32"},
        {QByteArray("\x3c\x00\x00\x00", 4), "UTF-32LE"}, {QByteArray("\x00\x00\x00\x3c", 4), "UTF-32BE"},
        {QByteArray("\xfe\xff", 2), "UTF-16"},           {QByteArray("\xff\xfe", 2), "UTF-16"},
        {QByteArray("\x3c\x00", 2), "UTF-16LE"},         {QByteArray("\x00\x3c", 2), "UTF-16BE"},
    };
    for (const auto &mark : marks) {
        if (bytes.startsWith(mark.beginning)) {
            return mark.encoding;
        }
    }
    return QByteArray();
}

QString decodedXml(const QByteArray &bytes)
{
    return std::unique_ptr<QTextDecoder>(codecOf(bytes).makeDecoder())->toUnicode(bytes);
}

int undecodableAt(const QByteArray &bytes)
{
    const QTextCodec &codec = codecOf(bytes);
    int sound = 0;
    int unsound = bytes.size() + 1;
    while (unsound - sound > 1) {
        const int middle = sound + (unsound - sound) / 2;
        (Beginning(codec, bytes, middle).isSound() ? sound : unsound) = middle;
    }
    return Beginning(codec, bytes, sound).text.size();
}

Undecodable undecodableOf(const QByteArray &bytes)
{
    const QTextCodec &codec = codecOf(bytes);
    const QString encoding = QString::fromLatin1(codec.name());
    const QChar replacement(QChar::ReplacementCharacter);
    if (codec.canEncode(replacement)) {
        const int count = Beginning(codec, bytes, bytes.size()).state.invalidChars;
        return {encoding, count == 0 ? -1 : undecodableAt(bytes), count};
    }
    // Not all of these codecs count replacements, but none decodes this character from the file.
    const QString text = decodedXml(bytes);
    return {encoding, text.indexOf(replacement), text.count(replacement)};
}

} // namespace Tobrix::Templates
