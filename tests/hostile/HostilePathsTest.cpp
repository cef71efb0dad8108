#include "HostileFile.h"
#include "HostileLoad.h"

#include "loading/CTemplateReader.h"
#include "model/CCatalogTemplate.h"
#include "standalone_host/StandaloneHost.h"

#include <QFile>
#include <QFileInfo>
#include <QTest>

#include <atomic>
#include <memory>
#include <thread>

#include <cstring>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Tobrix::Templates;

/// A kind of path that a process may get, created on disk.
enum class Place {
    Existing,
    Directory,
    Missing,
    Unreadable,
    Pipe,
    Socket,
    LinkToNowhere,
    LinkToItself,
    LinkToPipe,
    LinkToDevice,
    BelowAFile,
    LongName,
    TenGigabytes
};

Q_DECLARE_METATYPE(Format)
Q_DECLARE_METATYPE(Place)

namespace {

const LoadBounds smallBounds = boundsForSize(0);

bool bindSocket(const QByteArray &path)
{
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (static_cast<std::size_t>(path.size()) >= sizeof address.sun_path) {
        return false;
    }
    std::memcpy(address.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const bool isBound =
        ::bind(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0;
    ::close(descriptor);
    return isBound;
}

bool writeSparse(const QByteArray &path, off_t size)
{
    const int descriptor = ::open(path.constData(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
    const QByteArray begin = "<Template><Name>k</Name>";
    const bool isWritten =
        descriptor >= 0 &&
        ::write(descriptor, begin.constData(), static_cast<std::size_t>(begin.size())) == begin.size() &&
        ::ftruncate(descriptor, size) == 0;
    ::close(descriptor);
    return isWritten;
}

bool make(Place place, const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    switch (place) {
    case Place::Directory:
        return ::mkdir(name.constData(), 0755) == 0;
    case Place::Pipe:
        return ::mkfifo(name.constData(), 0666) == 0;
    case Place::Socket:
        return bindSocket(name);
    case Place::LinkToNowhere:
        return QFile::link(QStringLiteral("nowhere"), path);
    case Place::LinkToItself:
        return QFile::link(QFileInfo(path).fileName(), path);
    case Place::LinkToPipe:
        return make(Place::Pipe, path + QStringLiteral(".pipe")) &&
               QFile::link(path + QStringLiteral(".pipe"), path);
    case Place::LinkToDevice:
        return QFile::link(QStringLiteral("/dev/zero"), path);
    case Place::TenGigabytes:
        return writeSparse(name, 10'000'000'000);
    case Place::Existing:
    case Place::Missing:
    case Place::Unreadable:
    case Place::BelowAFile:
    case Place::LongName:
        break;
    }
    return true;
}

void addFormats()
{
    QTest::newRow("legacy") << Format::Legacy;
    QTest::newRow("current") << Format::Current;
}

} // namespace

class HostilePathsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsNoFileIsNotRead_data();
    void whatIsNoFileIsNotRead();
    void wellKnownPathsDoNotHang_data();
    void wellKnownPathsDoNotHang();
    void pathThatIsNotUtf8IsNotRead_data();
    void pathThatIsNotUtf8IsNotRead();
    void nullCharacterEndsNoPath();
    void fileThatShrinksIsReadAsFarAsItGoes_data();
    void fileThatShrinksIsReadAsFarAsItGoes();
    void pathThatChangesDoesNotHang_data();
    void pathThatChangesDoesNotHang();
};

void HostilePathsTest::whatIsNoFileIsNotRead_data()
{
    QTest::addColumn<Format>("format");
    QTest::addColumn<Place>("place");
    QTest::addColumn<bool>("isRead");
    static const struct
    {
        const char *name;
        Place place;
        bool isOpened;
    } places[] = {
        {"a file", Place::Existing, true},
        {"a directory", Place::Directory, false},
        {"nothing", Place::Missing, false},
        {"a file without permission", Place::Unreadable, false},
        {"a pipe", Place::Pipe, false},
        {"a socket", Place::Socket, false},
        {"a link to nowhere", Place::LinkToNowhere, false},
        {"a link to itself", Place::LinkToItself, false},
        {"a link to a pipe", Place::LinkToPipe, false},
        {"a link to a device", Place::LinkToDevice, false},
        {"a file below a file", Place::BelowAFile, false},
        {"a name that no file can have", Place::LongName, false},
        {"a file of ten gigabytes", Place::TenGigabytes, true},
    };
    for (const auto &row : places) {
        QTest::addRow("%s, legacy", row.name)
            << Format::Legacy << row.place << (row.isOpened && row.place != Place::TenGigabytes);
        QTest::addRow("%s, current", row.name) << Format::Current << row.place << row.isOpened;
    }
}

void HostilePathsTest::whatIsNoFileIsNotRead()
{
    QFETCH(Format, format);
    QFETCH(Place, place);
    QFETCH(bool, isRead);
    const HostileFolder folder;
    QString path = folder.path(format, QStringLiteral("place.xml"));
    if (place == Place::Existing || place == Place::Unreadable || place == Place::BelowAFile) {
        path = folder.write(format, document(format, "<a/>"));
    }
    if (place == Place::Unreadable) {
        QCOMPARE(::chmod(QFile::encodeName(path).constData(), 0), 0);
    } else if (place == Place::BelowAFile) {
        path += QStringLiteral("/below.xml");
    } else if (place == Place::LongName) {
        path = folder.path(format, QString(5'000, QLatin1Char('x')));
    }
    QVERIFY2(make(place, path), qPrintable(path));
    const HostileLoad load = loadInChild(path, smallBounds);
    QVERIFY2(load.failure.isEmpty(), qPrintable(load.failure));
    QCOMPARE(load.isRead, isRead);
    QCOMPARE(load.hasTemplate, isRead);
    QVERIFY(load.cpu <= smallBounds.cpu);
}

void HostilePathsTest::wellKnownPathsDoNotHang_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("isRead");
    QTest::newRow("empty") << "" << false;
    QTest::newRow("root") << "/" << false;
    QTest::newRow("dot") << "." << false;
    QTest::newRow("/dev/zero") << "/dev/zero" << false;
    QTest::newRow("/dev/null") << "/dev/null" << false;
    QTest::newRow("/dev/random") << "/dev/random" << false;
    QTest::newRow("/dev/tty") << "/dev/tty" << false;
    QTest::newRow("/dev/stdin") << "/dev/stdin" << false;
    QTest::newRow("its own memory") << "/proc/self/mem" << false;
    QTest::newRow("its own pages") << "/proc/self/pagemap" << false;
    QTest::newRow("the kernel's messages") << "/proc/kmsg" << false;
    QTest::newRow("a resource, legacy") << ":/hostile/templates/resource.xml" << true;
    QTest::newRow("a resource, current") << ":/hostile/templates_new/resource.xml" << true;
    QTest::newRow("no resource, legacy") << ":/hostile/templates/none.xml" << false;
    QTest::newRow("no resource, current") << ":/hostile/templates_new/none.xml" << false;
    QTest::newRow("a folder of resources, legacy") << ":/hostile/templates" << false;
    QTest::newRow("a folder of resources, current") << ":/hostile/templates_new/" << false;
    QTest::newRow("all resources") << ":/" << false;
    QTest::newRow("a colon") << ":" << false;
    QTest::newRow("an address of a resource") << "qrc:/hostile/templates/resource.xml" << false;
    QTest::newRow("an address of a file") << "file:///etc/passwd" << false;
    QTest::newRow("an address of a host") << "http://localhost/templates_new/a.xml" << false;
}

void HostilePathsTest::wellKnownPathsDoNotHang()
{
    QFETCH(QString, path);
    QFETCH(bool, isRead);
    const HostileLoad load = loadInChild(path, smallBounds);
    QVERIFY2(load.failure.isEmpty(), qPrintable(load.failure));
    QCOMPARE(load.isRead, isRead);
    QCOMPARE(load.hasTemplate, isRead);
    QVERIFY(load.cpu <= smallBounds.cpu);
}

void HostilePathsTest::pathThatIsNotUtf8IsNotRead_data()
{
    QTest::addColumn<Format>("format");
    addFormats();
}

void HostilePathsTest::pathThatIsNotUtf8IsNotRead()
{
    QFETCH(Format, format);
    const HostileFolder folder;
    const QString valid = folder.write(format, document(format, "<a/>"));
    const QByteArray invalid = QFile::encodeName(valid) + "\xff\xfe.xml";
    QCOMPARE(::rename(QFile::encodeName(valid).constData(), invalid.constData()), 0);
    // Such a path can only be passed by a shell: Qt encodes the arguments of processes.
    LimitedProcess process(smallBounds);
    process.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), QStringLiteral("exec \"$0\" \"$1\"*"),
                                              QStringLiteral(TOBRIX_HOSTILE_LOAD), valid});
    const HostileLoad load = process.takeLoad();
    // A temporary folder does not find it when it is removed.
    QCOMPARE(::unlink(invalid.constData()), 0);
    QVERIFY2(load.failure.isEmpty(), qPrintable(load.failure));
    QVERIFY(!load.isRead);
    QVERIFY(!load.hasTemplate);
}

void HostilePathsTest::nullCharacterEndsNoPath()
{
    const HostileFolder folder;
    const QString path = folder.write(Format::Legacy, document(Format::Legacy, "<a/>"));
    for (const auto &suffix : {QStringLiteral(".txt"), QStringLiteral("/templates_new/"), QString()}) {
        CCatalogTemplate *loaded = nullptr;
        const QString withNull = path + QChar(QChar::Null) + suffix;
        QVERIFY(!CTemplateReader::readFile(withNull, CTemplateReader::ReaderFlags(0), loaded));
        QVERIFY(!loaded);
    }
}

void HostilePathsTest::fileThatShrinksIsReadAsFarAsItGoes_data()
{
    QTest::addColumn<Format>("format");
    addFormats();
}

void HostilePathsTest::fileThatShrinksIsReadAsFarAsItGoes()
{
    QFETCH(Format, format);
    const HostileFolder folder;
    const QByteArray content = document(format, repeated("<a b='c'>text</a>\n", 20'000));
    const QString path = folder.write(format, content);
    std::atomic<bool> isDone{false};
    std::thread writer([&, name = QFile::encodeName(path)] {
        while (!isDone) {
            const int descriptor = ::open(name.constData(), O_WRONLY | O_TRUNC | O_CLOEXEC);
            ::write(descriptor, content.constData(), static_cast<std::size_t>(content.size()));
            ::ftruncate(descriptor, content.size() / 2);
            ::close(descriptor);
        }
    });
    QString failure;
    for (int i = 0; i < 30 && failure.isEmpty(); ++i) {
        const HostileLoad load = loadInChild(path, boundsForSize(content.size()));
        failure = load.failure;
        if (load.isRead != load.hasTemplate || (format == Format::Current && !load.isRead)) {
            failure = QStringLiteral("is not read");
        }
    }
    isDone = true;
    writer.join();
    QVERIFY2(failure.isEmpty(), qPrintable(failure));
}

void HostilePathsTest::pathThatChangesDoesNotHang_data()
{
    QTest::addColumn<Format>("format");
    addFormats();
}

/// A pipe replaces a file after it was checked and before it is opened.
void HostilePathsTest::pathThatChangesDoesNotHang()
{
    QFETCH(Format, format);
    const HostileFolder folder;
    const QByteArray file = QFile::encodeName(folder.write(format, document(format, "<a/>")));
    const QByteArray other = file + ".pipe";
    QCOMPARE(::mkfifo(other.constData(), 0666), 0);
    std::atomic<bool> isDone{false};
    std::thread exchanger([&] {
        while (!isDone) {
            ::renameat2(AT_FDCWD, file.constData(), AT_FDCWD, other.constData(), RENAME_EXCHANGE);
        }
    });
    QString failure;
    for (int i = 0; i < 2'000 && failure.isEmpty(); ++i) {
        CCatalogTemplate *loaded = nullptr;
        const bool isRead =
            CTemplateReader::readFile(QFile::decodeName(file), CTemplateReader::ReaderFlags(0), loaded);
        const std::unique_ptr<CCatalogTemplate> owner(loaded);
        if (isRead && loaded->key() != QLatin1String("k")) {
            failure = QStringLiteral("is read from something else");
        }
    }
    isDone = true;
    exchanger.join();
    QVERIFY2(failure.isEmpty(), qPrintable(failure));
}

int main(int argc, char *argv[])
{
    // File names are UTF-8 here, even when the tests run without a locale.
    qputenv("LC_ALL", "C.UTF-8");
    Tobrix::Standalone::StandaloneHost::instance().setLogSink([](int, const QString &, const QString &) {});
    QCoreApplication application(argc, argv);
    HostilePathsTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "HostilePathsTest.moc"
