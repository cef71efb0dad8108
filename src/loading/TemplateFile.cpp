#include "loading/TemplateFile_p.h"

#include "loading/Limits_p.h"

#include <QRegularExpression>
#include <QTextCodec>

#include <algorithm>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Tobrix::Templates {

namespace {

int openRegularFile(const QByteArray &path)
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

/// The encoding that a file's XML declaration names; empty when it names none.
QByteArray declaredEncoding(const QByteArray &beginning)
{
    static const QRegularExpression declaration(
        QStringLiteral("^[^<]*<\\?xml[^>]*\\sencoding\\s*=\\s*[\"']([A-Za-z0-9._:-]+)[\"']"));
    QByteArray ascii = beginning;
    // Two or four bytes a character: every other one, or more, is null.
    ascii.replace('\0', QByteArray());
    return declaration.match(QString::fromLatin1(ascii)).captured(1).toLatin1();
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

/// Whether markup stands in ASCII in an encoding, and nothing else can be taken for it.
bool isExtendedAscii(const QByteArray &encoding)
{
    static const QRegularExpression names(
        QStringLiteral(
            "^(utf-?8|us-ascii|ascii|latin-?1|iso[-_ ]?8859-\\d+|windows-125\\d|cp-?125\\d|koi8-[ru])$"),
        QRegularExpression::CaseInsensitiveOption);
    return names.match(QString::fromLatin1(encoding)).hasMatch();
}

} // namespace

TemplateFile::TemplateFile() = default;

TemplateFile::~TemplateFile() = default;

bool TemplateFile::openTemplate(const QString &path)
{
    close();
    setFileName(path);
    m_views.clear();
    m_heldBack.clear();
    m_excess.clear();
    m_line = 1;
    if (path.startsWith(QLatin1Char(':'))) {
        return open(QIODevice::ReadOnly);
    }
    const int descriptor = openRegularFile(encodeName(path));
    if (descriptor < 0) {
        return false;
    }
    if (!open(descriptor, QIODevice::ReadOnly, AutoCloseHandle)) {
        ::close(descriptor);
        return false;
    }
    return true;
}

qint64 TemplateFile::readData(char *data, qint64 maxSize)
{
    if (!m_heldBack.isEmpty()) {
        return takeHeldBack(data, maxSize);
    }
    const qint64 size = m_excess.isEmpty() ? QFile::readData(data, maxSize) : 0;
    if (size <= 0) {
        return size;
    }
    follow(QByteArray::fromRawData(data, static_cast<int>(size)));
    if (!isInDocumentType()) {
        return m_excess.isEmpty() ? size : 0;
    }
    holdBackDocumentType(QByteArray(data, static_cast<int>(size)));
    return takeHeldBack(data, maxSize);
}

void TemplateFile::holdBackDocumentType(const QByteArray &beginning)
{
    // A parser must not see the beginning of a document type that turns out to be too much at its end.
    m_heldBack = beginning;
    QByteArray chunk(Limits::documentTypeSize, Qt::Uninitialized);
    while (isInDocumentType() && m_excess.isEmpty()) {
        const qint64 size = QFile::readData(chunk.data(), chunk.size());
        if (size <= 0) {
            break;
        }
        m_heldBack.append(chunk.constData(), static_cast<int>(size));
        follow(QByteArray::fromRawData(chunk.constData(), static_cast<int>(size)));
    }
    if (!m_excess.isEmpty()) {
        m_heldBack.clear();
    }
}

qint64 TemplateFile::takeHeldBack(char *data, qint64 maxSize)
{
    const int size = static_cast<int>(std::min<qint64>(maxSize, m_heldBack.size()));
    std::memcpy(data, m_heldBack.constData(), static_cast<std::size_t>(size));
    m_heldBack.remove(0, size);
    return size;
}

void TemplateFile::follow(const QByteArray &chunk)
{
    if (m_views.empty()) {
        chooseViews(chunk.left(1024));
    }
    for (auto &view : m_views) {
        follow(chunk, view);
    }
}

void TemplateFile::follow(const QByteArray &chunk, View &view)
{
    const QByteArray bytes = view.decoder ? view.decoder->toUnicode(chunk).toUtf8() : chunk;
    const qint64 followed = view.guard.follow(bytes.constData(), bytes.size());
    if (!m_excess.isEmpty()) {
        return;
    }
    m_excess = view.guard.excess();
    if (&view == &m_views.front() || !m_excess.isEmpty()) {
        m_line += static_cast<int>(std::count(bytes.cbegin(), bytes.cbegin() + followed, '\n'));
    }
}

bool TemplateFile::isInDocumentType() const
{
    return std::any_of(m_views.cbegin(), m_views.cend(),
                       [](const View &view) { return view.guard.isInDocumentType(); });
}

void TemplateFile::chooseViews(const QByteArray &beginning)
{
    const QByteArray wide = wideEncoding(beginning);
    const QByteArray declared = declaredEncoding(beginning);
    // The parsers start with what the first bytes say and go on with what the declaration says, so that each
    // may come to be in force.
    addView(wide);
    if (!declared.isEmpty() && declared != wide) {
        addView(declared);
    }
}

void TemplateFile::addView(const QByteArray &encoding)
{
    View view;
    const bool isAscii = encoding.isEmpty() || isExtendedAscii(encoding);
    const QTextCodec *codec = isAscii ? nullptr : QTextCodec::codecForName(encoding);
    if (codec) {
        view.decoder.reset(codec->makeDecoder());
    } else if (std::any_of(m_views.cbegin(), m_views.cend(),
                           [](const View &other) { return !other.decoder; })) {
        return;
    }
    m_views.push_back(std::move(view));
}

} // namespace Tobrix::Templates
