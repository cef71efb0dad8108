// Any bytes go through the reader of the legacy format. When they are a text, so does the same text in
// UTF-16, of which the parser gets every character: what is found must be the same.

#include "fuzzing/FuzzInput.h"
#include "fuzzing/Reading.h"

#include "format_legacy/CTemplateXMLReader.h"
#include "xml/GuardedFile_p.h"

#include <QTextCodec>

using namespace Tobrix;

namespace {

QString pathOf(const QByteArray &file)
{
    const auto *bytes = reinterpret_cast<const std::uint8_t *>(file.constData());
    return Fuzzing::fileOf(bytes, static_cast<std::size_t>(file.size()));
}

Fuzzing::Reading readingOf(const QByteArray &file)
{
    Templates::CTemplateXMLReader reader;
    return Fuzzing::readingOf(reader, pathOf(file), false);
}

bool isWithinLimits(const QByteArray &file)
{
    Templates::GuardedFile opened;
    opened.openTemplate(pathOf(file));
    opened.readAll();
    return opened.excess().isEmpty();
}

/// The text of a file that is in UTF-8 and says no more of its encoding than that; null for any other.
QString textOf(const QByteArray &file)
{
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QString text = QTextCodec::codecForName("UTF-8")->toUnicode(file.constData(), file.size(), &state);
    const bool isWhole = state.invalidChars == 0 && state.remainingChars == 0;
    // These say of the bytes behind them how to read them. Qt drops a byte order mark at the beginning of
    // every piece that it decodes, and in UTF-16 that is another one.
    const bool isMarked = text.contains(QChar(QChar::ByteOrderMark)) || text.startsWith(QChar::Null) ||
                          text.contains(QLatin1String("encoding"));
    return isWhole && !isMarked ? text : QString();
}

/// A text with a comment in front, so that the first of the pieces in which files are read ends somewhere in
/// it.
QString cutSomewhere(const QString &text)
{
    constexpr int piece = 16 * 1024;
    const int begin = text.startsWith(QLatin1String("<?xml")) ? text.indexOf(QLatin1String("?>")) + 2 : 0;
    const int cut = static_cast<int>(qHash(text, 0) % static_cast<uint>(text.size()));
    const QString comment = QStringLiteral("<!--%1-->").arg(QString(piece - cut, QLatin1Char('p')));
    return text.left(begin) + comment + text.mid(begin);
}

QByteArray utf16FileOf(const QString &text)
{
    const QString marked = QChar(QChar::ByteOrderMark) + text;
    return QByteArray(reinterpret_cast<const char *>(marked.utf16()), marked.size() * 2);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *bytes, std::size_t size)
{
    QByteArray file(reinterpret_cast<const char *>(bytes), static_cast<int>(size));
    readingOf(file);

    file.replace(" encoding=\"UTF-8\"", "");
    QString text = textOf(file);
    if (text.isEmpty()) {
        return 0;
    }
    text = cutSomewhere(text);
    const QByteArray utf8File = text.toUtf8();
    const QByteArray utf16File = utf16FileOf(text);
    // Where in a file something is too much, and so what is found before that, is another place in the two.
    if (isWithinLimits(utf8File) && isWithinLimits(utf16File)) {
        Fuzzing::requireSame("in UTF-8:", readingOf(utf8File), "in UTF-16:", readingOf(utf16File));
    }
    return 0;
}
