#include "xml/GuardedFile_p.h"

#include "xml/XmlLimits_p.h"

#include <QFileInfo>
#include <QTextCodec>

#include <algorithm>
#include <cstring>
#include <iterator>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tobrix::Templates {

namespace {

int descriptorOfRegularFile(const QByteArray &path)
{
    // Opening a pipe without O_NONBLOCK waits for its writer. What was opened is looked at, not what the path
    // names: that may be something else by now.
    const int descriptor = ::open(path.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (descriptor < 0) {
        return -1;
    }
    struct stat status = {};
    if (::fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) {
        ::close(descriptor);
        return -1;
    }
    return descriptor;
}

/// The encoding that the first bytes of a file give away; empty for none but ASCII and its extensions.
QByteArray wideEncoding(const QByteArray &beginning)
{
    static const struct
    {
        QByteArray bytes;
        QByteArray encoding;
    } marks[] = {
        {QByteArray("\x00\x00\xfe\xff", 4), "UTF-32"},   {QByteArray("\xff\xfe\x00\x00", 4), "UTF-32"},
        {QByteArray("\x3c\x00\x00\x00", 4), "UTF-32LE"}, {QByteArray("\x00\x00\x00\x3c", 4), "UTF-32BE"},
        {QByteArray("\xfe\xff", 2), "UTF-16"},           {QByteArray("\xff\xfe", 2), "UTF-16"},
        {QByteArray("\x3c\x00", 2), "UTF-16LE"},         {QByteArray("\x00\x3c", 2), "UTF-16BE"},
    };
    for (const auto &mark : marks) {
        if (beginning.startsWith(mark.bytes)) {
            return mark.encoding;
        }
    }
    return QByteArray();
}

bool isDecimal(const QByteArray &text)
{
    return !text.isEmpty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

/// Whether markup stands in ASCII in an encoding, and nothing else can be taken for it.
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

// Qt's DOM parser looks no further.
constexpr int xmlDeclarationSize = 1024;

/// What an XML declaration says about the encoding of its file.
struct DeclaredEncoding
{
    QByteArray name;
    bool isPlain = true; ///< whether there is only one way to understand the declaration
};

bool isXmlSpace(QChar c)
{
    return c == QLatin1Char(' ') || c == QLatin1Char('\n') || c == QLatin1Char('\t') ||
           c == QLatin1Char('\r');
}

int behindSpace(const QString &text, int at)
{
    while (at < text.size() && isXmlSpace(text.at(at))) {
        ++at;
    }
    return at;
}

/// The value of an attribute, from behind its name on; null when there is no such value.
QString attributeValueAt(const QString &text, int at)
{
    at = behindSpace(text, at);
    if (at == text.size() || text.at(at) != QLatin1Char('=')) {
        return QString();
    }
    at = behindSpace(text, at + 1);
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
    // The parsers look for the name in ways of their own, which agree on this form: a second attribute, and
    // nowhere else the word or a reference.
    const int firstAttribute = behindSpace(declaration, xmlDeclarationBeginning.size());
    const QString name = attributeValueAt(declaration, at + keyword.size());
    const bool isPlain = firstAttribute > xmlDeclarationBeginning.size() && firstAttribute < at &&
                         isXmlSpace(declaration.at(at - 1)) && isEncodingName(name) &&
                         declaration.count(keyword) == 1 && !declaration.contains(QLatin1Char('&'));
    return {name.toLatin1(), isPlain};
}

} // namespace

GuardedFile::GuardedFile(SpareWhiteSpace leftOut) : m_leftOut(leftOut)
{
}

GuardedFile::~GuardedFile() = default;

bool GuardedFile::openTemplate(const QString &path)
{
    close();
    start(m_leftOut);
    setFileName(path);
    const bool isResource = path.startsWith(QLatin1Char(':'));
    const bool isOpen =
        isResource ? !QFileInfo(path).isDir() && open(QIODevice::ReadOnly) : openRegular(path);
    if (isOpen) {
        requireSize(size());
    }
    return isOpen;
}

bool GuardedFile::openRegular(const QString &path)
{
    // The system would take what stands before a null character for the whole path.
    if (path.contains(QChar(QChar::Null))) {
        return false;
    }
    const int descriptor = descriptorOfRegularFile(encodeName(path));
    if (descriptor < 0) {
        return false;
    }
    if (!open(descriptor, QIODevice::ReadOnly, AutoCloseHandle)) {
        ::close(descriptor);
        return false;
    }
    return true;
}

void GuardedFile::restartWhole()
{
    seek(0);
    start(SpareWhiteSpace::None);
    requireSize(size());
}

QByteArray GuardedFile::unguarded()
{
    seek(0);
    // The file may have grown since.
    QByteArray bytes(static_cast<int>(std::min<qint64>(size(), Limits::fileSize)), Qt::Uninitialized);
    int end = 0;
    while (end < bytes.size()) {
        const qint64 read = QFile::readData(bytes.data() + end, bytes.size() - end);
        if (read <= 0) {
            break;
        }
        end += static_cast<int>(read);
    }
    close();
    bytes.truncate(end);
    return bytes;
}

void GuardedFile::start(SpareWhiteSpace leftOut)
{
    m_isWhole = leftOut == SpareWhiteSpace::None;
    m_guard = XmlGuard();
    m_guard.noteSpareWhiteSpace(leftOut);
    m_decoder.reset();
    m_size = 0;
    m_heldBack.clear();
    m_excess.clear();
    m_place = TextPlace();
    m_givenPlace = TextPlace();
}

bool GuardedFile::isFaultBeforeExcess(int line, int column) const
{
    // A parser that has come to the end of what it was given stops there, or next to it.
    constexpr int nextToIt = 2;
    return line > 0 && (line < m_givenPlace.line() ||
                        (line == m_givenPlace.line() && column + nextToIt < m_givenPlace.column()));
}

qint64 GuardedFile::readData(char *data, qint64 maxSize)
{
    if (!m_heldBack.isEmpty()) {
        return takeHeldBack(data, maxSize);
    }
    const qint64 size = m_excess.isEmpty() ? QFile::readData(data, maxSize) : 0;
    if (size <= 0) {
        return size;
    }
    const qint64 allowed = follow(data, size);
    if (!m_guard.isInDocumentType()) {
        countGiven(allowed);
        return allowed;
    }
    holdBackDocumentType(QByteArray(data, static_cast<int>(allowed)));
    countGiven(m_heldBack.size());
    return takeHeldBack(data, maxSize);
}

void GuardedFile::holdBackDocumentType(const QByteArray &beginning)
{
    // A parser must not see the beginning of a document type that turns out to be too much at its end.
    m_heldBack = beginning;
    QByteArray chunk(Limits::documentTypeSize, Qt::Uninitialized);
    while (m_guard.isInDocumentType() && m_excess.isEmpty()) {
        const qint64 size = QFile::readData(chunk.data(), chunk.size());
        if (size <= 0) {
            break;
        }
        m_heldBack.append(chunk.constData(), static_cast<int>(size));
        follow(chunk.data(), size);
    }
    if (m_guard.isInDocumentType() && m_excess.isEmpty()) {
        m_excess = QStringLiteral("a document type without an end");
    }
    if (!m_excess.isEmpty()) {
        m_heldBack.clear();
    }
}

qint64 GuardedFile::takeHeldBack(char *data, qint64 maxSize)
{
    const int size = static_cast<int>(std::min<qint64>(maxSize, m_heldBack.size()));
    std::memcpy(data, m_heldBack.constData(), static_cast<std::size_t>(size));
    m_heldBack.remove(0, size);
    return size;
}

qint64 GuardedFile::follow(char *data, qint64 size)
{
    if (m_size == 0) {
        chooseDecoder(QByteArray(data, static_cast<int>(std::min<qint64>(size, xmlDeclarationSize))));
    }
    m_size += size;
    requireSize(m_size);
    if (!m_excess.isEmpty()) {
        return 0;
    }
    const qint64 allowed = m_isPlain ? followPlain(data, size)
                                     : followEncoded(QByteArray::fromRawData(data, static_cast<int>(size)));
    // What stands before the place where something is too much may be of the entities that are too much.
    return !m_excess.isEmpty() && m_guard.hasDocumentType() ? 0 : allowed;
}

qint64 GuardedFile::followEncoded(const QByteArray &chunk)
{
    const QByteArray utf8 = m_decoder->toUnicode(chunk).toUtf8();
    const qint64 followed = m_guard.follow(utf8.constData(), utf8.size());
    m_excess = m_guard.excess();
    m_place.follow(QString::fromUtf8(utf8.constData(), static_cast<int>(followed)));
    // Where in the bytes something is too much cannot be told from where it is in their text.
    return m_excess.isEmpty() ? chunk.size() : 0;
}

qint64 GuardedFile::followPlain(char *data, qint64 size)
{
    const qint64 followed = leaveOutWhiteSpace(data, m_guard.follow(data, size));
    m_excess = m_guard.excess();
    if (m_isWhole) {
        m_place.follow(m_decoder->toUnicode(data, static_cast<int>(followed)));
    }
    return followed;
}

qint64 GuardedFile::leaveOutWhiteSpace(char *data, qint64 size) const
{
    char *target = data;
    const char *source = data;
    const auto move = [&](const char *end) {
        const auto count = static_cast<std::size_t>(end - source);
        std::memmove(target, source, count);
        target += count;
    };
    for (const auto &whiteSpace : m_guard.spareWhiteSpace()) {
        move(data + whiteSpace.begin);
        source = data + whiteSpace.end;
    }
    move(data + size);
    return target - data;
}

void GuardedFile::countGiven(qint64 size)
{
    if (size > 0) {
        m_givenPlace = m_place;
    }
}

void GuardedFile::requireSize(qint64 size)
{
    if (size > Limits::fileSize && m_excess.isEmpty()) {
        m_excess = QStringLiteral("a file of more than %1 bytes").arg(Limits::fileSize);
    }
}

void GuardedFile::chooseDecoder(const QByteArray &beginning)
{
    const QByteArray wide = wideEncoding(beginning);
    const QTextCodec *const first = QTextCodec::codecForName(wide.isEmpty() ? QByteArray("UTF-8") : wide);
    m_isPlain = wide.isEmpty();
    m_decoder.reset(first->makeDecoder());
    const auto decoded = [&beginning](const QTextCodec &codec) {
        return std::unique_ptr<QTextDecoder>(codec.makeDecoder())->toUnicode(beginning);
    };
    const QString text = decoded(*first);
    if (!text.startsWith(xmlDeclarationBeginning)) {
        return;
    }
    const QString declaration = text.left(text.indexOf(QLatin1Char('>')) + 1);
    const DeclaredEncoding declared = declaredEncoding(declaration);
    if ((declaration.isEmpty() && beginning.size() == xmlDeclarationSize) || !declared.isPlain) {
        m_excess = QStringLiteral("an XML declaration of unusual form");
        return;
    }
    const QTextCodec *const codec = QTextCodec::codecForName(declared.name);
    if (!codec || codec == first) {
        return;
    }
    // The parsers read on in the encoding that the declaration names. Where it reads differently in that
    // encoding, they do so from somewhere else.
    if (!decoded(*codec).startsWith(declaration)) {
        m_excess = QStringLiteral("an XML declaration in another encoding than it names");
        return;
    }
    m_isPlain = isExtendedAscii(declared.name);
    m_decoder.reset(codec->makeDecoder());
}

} // namespace Tobrix::Templates
