#include "loading/TemplateFile_p.h"

#include <QRegularExpression>
#include <QTextCodec>

#include <algorithm>

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
    m_excess.clear();
    m_excessOffset = 0;
    m_offset = 0;
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
    if (!m_excess.isEmpty()) {
        return 0;
    }
    const qint64 size = QFile::readData(data, maxSize);
    if (size <= 0) {
        return size;
    }
    if (m_views.empty()) {
        chooseViews(QByteArray::fromRawData(data, static_cast<int>(std::min<qint64>(size, 1024))));
    }
    qint64 allowed = size;
    for (auto &view : m_views) {
        if (!view.decoder) {
            allowed = std::min(allowed, view.guard.follow(data, size));
        } else {
            const QByteArray bytes = view.decoder->toUnicode(data, static_cast<int>(size)).toUtf8();
            // Where in the bytes it is too much cannot be told from where it is in their text.
            allowed = view.guard.follow(bytes.constData(), bytes.size()) < bytes.size() ? 0 : allowed;
        }
        if (m_excess.isEmpty()) {
            m_excess = view.guard.excess();
        }
    }
    m_offset += allowed;
    m_excessOffset = m_offset;
    return allowed;
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
