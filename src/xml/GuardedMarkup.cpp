#include "xml/GuardedMarkup_p.h"

#include "xml/XmlDecoding_p.h"
#include "xml/XmlLimits_p.h"

#include <QRegularExpression>
#include <QTextCodec>

#include <algorithm>
#include <cstring>
#include <iterator>

namespace Tobrix::Templates {

namespace {

bool isDecimal(const QByteArray &text)
{
    return !text.isEmpty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// Whether an encoding is a superset of ASCII, in which no other bytes look like markup.
bool isExtendedAscii(const QByteArray &encoding)
{
    static const QByteArray names[] = {"utf-8",   "utf8",   "us-ascii", "ascii",
                                       "latin-1", "latin1", "koi8-r",   "koi8-u"};
    static const QByteArray numberedNames[] = {"iso-8859-",   "iso_8859-", "iso8859-",
                                               "windows-125", "cp-125",    "cp125"};
    const QByteArray name = encoding.toLower();
    const auto isNumbered = [&name](const QByteArray &beginning) {
        return name.startsWith(beginning) && isDecimal(name.mid(beginning.size()));
    };
    return std::find(std::begin(names), std::end(names), name) != std::end(names) ||
           std::any_of(std::begin(numberedNames), std::end(numberedNames), isNumbered);
}

constexpr QLatin1String xmlDeclarationBeginning("<?xml");

// The number of bytes in which Qt's DOM parser looks for the encoding.
constexpr int xmlDeclarationSize = 1024;

// The whole file is decoded for each encoding that a declaration of unusual form may mean.
constexpr std::size_t mostEncodings = 3;

/// The encoding that an XML declaration names.
struct DeclaredEncoding
{
    QByteArray name;
    bool isPlain = true; ///< whether all parsers read the declaration in the same way
};

bool isXmlSpace(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\n') || c == QLatin1Char('\t') ||
           c == QLatin1Char('\r');
}

int afterSpace(const QString &text, int at)
{
    while (at < text.size() && isXmlSpace(text.at(at))) {
        ++at;
    }
    return at;
}

/// The value of an attribute, parsed from after its name; null when there is none.
QString attributeValueAt(const QString &text, int at)
{
    at = afterSpace(text, at);
    if (at == text.size() || text.at(at) != QLatin1Char('=')) {
        return QString();
    }
    at = afterSpace(text, at + 1);
    if (at == text.size() || (text.at(at) != QLatin1Char('"') && text.at(at) != QLatin1Char('\''))) {
        return QString();
    }
    const int end = text.indexOf(text.at(at), at + 1);
    return end < 0 ? QString() : text.mid(at + 1, end - at - 1);
}

bool isEncodingName(const QString &text)
{
    const auto isLetter = [](QChar c) {
        return (c >= QLatin1Char('A') && c <= QLatin1Char('Z')) ||
               (c >= QLatin1Char('a') && c <= QLatin1Char('z'));
    };
    const auto isOfName = [&](QChar c) {
        return isLetter(c) || (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || c == QLatin1Char('.') ||
               c == QLatin1Char('_') || c == QLatin1Char('-');
    };
    return !text.isEmpty() && isLetter(text.front()) && std::all_of(text.begin(), text.end(), isOfName);
}

DeclaredEncoding declaredEncoding(const QString &declaration)
{
    const QLatin1String keyword("encoding");
    const int at = declaration.indexOf(keyword);
    if (at < 0) {
        return {};
    }
    // The parsers search for the name differently. They agree on this form: not the first attribute, the word
    // used only once, no reference.
    const int firstAttribute = afterSpace(declaration, xmlDeclarationBeginning.size());
    const QString name = attributeValueAt(declaration, at + keyword.size());
    const bool isPlain = firstAttribute > xmlDeclarationBeginning.size() && firstAttribute < at &&
                         isXmlSpace(declaration.at(at - 1)) && isEncodingName(name) &&
                         declaration.count(keyword) == 1 && !declaration.contains(QLatin1Char('&'));
    return {name.toLatin1(), isPlain};
}

/// All codecs that a parser could find in an unusual declaration: every quoted string is a candidate, nested
/// quotes and character references included.
std::vector<const QTextCodec *> codecsNamedIn(QString declaration)
{
    static const QRegularExpression reference(QStringLiteral("&#(?:x([0-9A-Fa-f]{1,4})|([0-9]{1,5}));"));
    for (auto match = reference.match(declaration); match.hasMatch(); match = reference.match(declaration)) {
        const bool isHexadecimal = match.capturedLength(1) > 0;
        const uint code = match.captured(isHexadecimal ? 1 : 2).toUInt(nullptr, isHexadecimal ? 16 : 10);
        declaration.replace(match.capturedStart(), match.capturedLength(), QChar(static_cast<ushort>(code)));
    }
    std::vector<const QTextCodec *> codecs;
    for (int at = 0; at < declaration.size(); ++at) {
        const QChar quote = declaration.at(at);
        const bool isQuote = quote == QLatin1Char('"') || quote == QLatin1Char('\'');
        const int end = isQuote ? declaration.indexOf(quote, at + 1) : -1;
        const QTextCodec *const codec =
            end < 0 ? nullptr : QTextCodec::codecForName(declaration.mid(at + 1, end - at - 1).toLatin1());
        if (codec && std::find(codecs.begin(), codecs.end(), codec) == codecs.end()) {
            codecs.push_back(codec);
        }
    }
    return codecs;
}

QString decoded(const QTextCodec &codec, const QByteArray &bytes)
{
    return std::unique_ptr<QTextDecoder>(codec.makeDecoder())->toUnicode(bytes);
}

} // namespace

GuardedMarkup::GuardedMarkup(const QByteArray &bytes) : m_codec(QTextCodec::codecForName("UTF-8"))
{
    setData(bytes);
    open(QIODevice::ReadOnly);
    if (bytes.size() > Limits::fileSize) {
        m_excess = excessOfSize();
    }
}

GuardedMarkup::~GuardedMarkup() = default;

QString GuardedMarkup::excessOfSize()
{
    return QStringLiteral("a file of more than %1 bytes").arg(Limits::fileSize);
}

TextPlace GuardedMarkup::placeAfter(qint64 followed) const
{
    TextPlace place;
    const int size = static_cast<int>(followed);
    if (m_isPlain) {
        place.follow(decoded(*m_codec, buffer().left(size)));
    } else {
        place.follow(QString::fromUtf8(decoded(*m_codec, buffer()).toUtf8().left(size)));
    }
    return place;
}

bool GuardedMarkup::isFaultBeforeExcess(int line, int column) const
{
    // A parser stops at the end of the data, or within the next few bytes.
    constexpr int nextToIt = 2;
    const TextPlace given = placeAfter(m_given);
    return line > 0 && (line < given.line() || (line == given.line() && column + nextToIt < given.column()));
}

qint64 GuardedMarkup::readData(char *data, qint64 maxSize)
{
    if (!m_heldBack.isEmpty()) {
        return takeHeldBack(data, maxSize);
    }
    const qint64 size = m_excess.isEmpty() ? takeBytes(data, maxSize) : 0;
    if (size <= 0) {
        return size;
    }
    qint64 given = follow(QByteArray::fromRawData(data, static_cast<int>(size)));
    if (m_guard.isInDocumentType()) {
        holdBackDocumentType(QByteArray(data, static_cast<int>(given)));
        given = m_heldBack.size();
    }
    if (given > 0) {
        m_given = m_followed;
    }
    return m_heldBack.isEmpty() ? given : takeHeldBack(data, maxSize);
}

void GuardedMarkup::holdBackDocumentType(const QByteArray &beginning)
{
    // A parser must not get the start of a document type whose end exceeds a limit.
    m_heldBack = beginning;
    QByteArray chunk(Limits::documentTypeSize, Qt::Uninitialized);
    while (m_guard.isInDocumentType() && m_excess.isEmpty()) {
        const qint64 size = takeBytes(chunk.data(), chunk.size());
        if (size <= 0) {
            break;
        }
        m_heldBack.append(chunk.constData(), static_cast<int>(size));
        follow(QByteArray::fromRawData(chunk.constData(), static_cast<int>(size)));
    }
    if (m_guard.isInDocumentType() && m_excess.isEmpty()) {
        m_excess = QStringLiteral("a document type without an end");
    }
    if (!m_excess.isEmpty()) {
        m_heldBack.clear();
    }
}

qint64 GuardedMarkup::takeBytes(char *data, qint64 maxSize)
{
    // Not by the device's position: held-back bytes have been taken, but not read.
    const qint64 size = std::min<qint64>(maxSize, buffer().size() - m_taken);
    std::memcpy(data, buffer().constData() + m_taken, static_cast<std::size_t>(size));
    m_taken += size;
    return size;
}

qint64 GuardedMarkup::takeHeldBack(char *data, qint64 maxSize)
{
    const int size = static_cast<int>(std::min<qint64>(maxSize, m_heldBack.size()));
    std::memcpy(data, m_heldBack.constData(), static_cast<std::size_t>(size));
    m_heldBack.remove(0, size);
    return size;
}

qint64 GuardedMarkup::follow(const QByteArray &chunk)
{
    if (!m_isChosen) {
        m_isChosen = true;
        chooseDecoder(data().left(xmlDeclarationSize));
    }
    if (!m_excess.isEmpty()) {
        return 0;
    }
    if (!m_isFollowed) {
        return chunk.size();
    }
    const qint64 allowed = m_isPlain ? followPlain(chunk) : followEncoded(chunk);
    // With a document type, the text before that place may come from the entities that exceed the limit.
    return !m_excess.isEmpty() && m_guard.hasDocumentType() ? 0 : allowed;
}

qint64 GuardedMarkup::followEncoded(const QByteArray &chunk)
{
    const QByteArray utf8 = m_decoder->toUnicode(chunk).toUtf8();
    const qint64 followed = m_guard.follow(utf8.constData(), utf8.size());
    m_excess = m_guard.excess();
    m_followed += followed;
    // A place in the text does not tell the place in the bytes.
    return m_excess.isEmpty() ? chunk.size() : 0;
}

qint64 GuardedMarkup::followPlain(const QByteArray &chunk)
{
    const qint64 followed = m_guard.follow(chunk.constData(), chunk.size());
    m_excess = m_guard.excess();
    m_followed += followed;
    return followed;
}

void GuardedMarkup::chooseDecoder(const QByteArray &beginning)
{
    const QByteArray wide = wideEncoding(beginning);
    const QTextCodec *const first = QTextCodec::codecForName(wide.isEmpty() ? QByteArray("UTF-8") : wide);
    m_isPlain = wide.isEmpty();
    decodeWith(*first);
    const QString text = decoded(*first, beginning);
    if (!text.startsWith(xmlDeclarationBeginning)) {
        return;
    }
    const QString declaration = text.left(text.indexOf(QLatin1Char('>')) + 1);
    if (declaration.isEmpty() && beginning.size() == xmlDeclarationSize) {
        m_excess = QStringLiteral("an XML declaration of more than %1 bytes").arg(xmlDeclarationSize);
        return;
    }
    const DeclaredEncoding declared = declaredEncoding(declaration);
    std::vector<const QTextCodec *> codecs;
    if (!declared.isPlain) {
        codecs = codecsNamedIn(declaration);
    } else if (const QTextCodec *const codec = QTextCodec::codecForName(declared.name)) {
        codecs.push_back(codec);
    }
    // A parser continues in the declared encoding. If the declaration itself decodes differently in it, the
    // parser continues at another offset.
    const auto readsDifferently = [&](const QTextCodec *codec) {
        return codec != first && !decoded(*codec, beginning).startsWith(declaration);
    };
    if (std::any_of(codecs.begin(), codecs.end(), readsDifferently)) {
        m_excess = QStringLiteral("an XML declaration in another encoding than it names");
    } else if (codecs.size() > mostEncodings) {
        m_excess = QStringLiteral("an XML declaration that names more than %1 encodings").arg(mostEncodings);
    } else if (!declared.isPlain) {
        codecs.push_back(first);
        requireAllWithin(codecs);
    } else if (!codecs.empty() && codecs.front() != first) {
        m_isPlain = isExtendedAscii(declared.name);
        decodeWith(*codecs.front());
    }
}

void GuardedMarkup::decodeWith(const QTextCodec &codec)
{
    m_codec = &codec;
    m_decoder.reset(codec.makeDecoder());
}

void GuardedMarkup::requireAllWithin(const std::vector<const QTextCodec *> &codecs)
{
    for (const auto *codec : codecs) {
        const QByteArray utf8 = decoded(*codec, data()).toUtf8();
        XmlGuard guard;
        const qint64 followed = guard.follow(utf8.constData(), utf8.size());
        m_excess = guard.excess();
        if (m_excess.isEmpty() && guard.isInDocumentType()) {
            m_excess = QStringLiteral("a document type without an end");
        }
        if (!m_excess.isEmpty()) {
            m_codec = codec;
            m_isPlain = false;
            m_followed = followed;
            return;
        }
    }
    m_isFollowed = false;
}

} // namespace Tobrix::Templates
