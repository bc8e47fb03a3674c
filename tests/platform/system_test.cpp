#include "platform/system/files.h"
#include "platform/system/http.h"
#include "platform/system/outputfile.h"
#include "platform/system/shell.h"
#include "support/errorof.h"
#include "support/oneanswer.h"
#include "support/print.h"
#include "support/texttable.h"

#include <QFile>
#include <QProcess>
#include <QSslKey>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

namespace {

class ProgramFolder : public testing::Test
{
protected:
    ProgramFolder() { Files::setProgramFolder(folder.path()); }
    ~ProgramFolder() override { Files::setProgramFolder({}); }

    QTemporaryDir folder;
};

/// A disk on which no file takes more than so many bytes, as long as the object lives.
class FullDisk
{
public:
    explicit FullDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &before_); }

private:
    rlimit before_;
};

/// A web server in the test's own thread, which works while Http waits. It keeps its connections.
class Server : public QTcpServer
{
public:
    using Answer = std::function<void(QTcpSocket& socket, const QByteArray& path)>;

    explicit Server(const Answer& answer)
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this, answer] {
            ++connections;
            QTcpSocket* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
            connect(socket, &QTcpSocket::readyRead, this,
                    [socket, answer] { answer(*socket, socket->readAll().split(' ').value(1)); });
        });
    }
    QString at(const QString& path) const { return u"http://127.0.0.1:%1/%2"_s.arg(serverPort()).arg(path); }

    int connections = 0;
};

/// A certificate for this machine, signed by itself, with its key.
QSslConfiguration ownCertificate(const QTemporaryDir& folder)
{
    QFile file(folder.filePath(u"pem"_s));
    const QStringList arguments =
        u"req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 2 -subj /CN=localhost "
        "-addext subjectAltName=IP:127.0.0.1 -keyout"_s.split(u' ');
    EXPECT_EQ(
        QProcess::execute(u"openssl"_s, arguments + QStringList{file.fileName(), u"-out"_s, file.fileName()}),
        0);
    EXPECT_TRUE(file.open(QFile::ReadOnly));
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setPrivateKey(QSslKey(&file, QSsl::Ec));
    tls.setLocalCertificateChain(QSslCertificate::fromPath(file.fileName()));
    return tls;
}

} // namespace

TEST_F(ProgramFolder, NamesAreFoundWhateverTheirCase)
{
    Files::write(Files::inProgramFolder(u"\\tremosilva.ini"_s), "one");
    Files::write(Files::inProgramFolder(u"\\Tremosilva.INI"_s), "two");
    EXPECT_EQ(Files::filesOf(folder.path()), QStringList{u"tremosilva.ini"_s}) << "one file, not two";
    EXPECT_EQ(Files::read(Files::inProgramFolder(u"\\TREMOSILVA.ini"_s)), "two");
    Files::makeFolder(Files::inProgramFolder(u"\\temp"_s));
    EXPECT_EQ(Files::inProgramFolder(u"\\TEMP\\x.pdf"_s), folder.path() + u"/temp/x.pdf"_s);
}

TEST_F(ProgramFolder, FailuresOfFilesAreErrors)
{
    const QString missing = Files::inProgramFolder(u"\\missing"_s);
    EXPECT_EQ(errorOf([&] { Files::read(missing); }), 53);
    EXPECT_EQ(errorOf([&] { Files::removeFile(missing); }), 75);
    EXPECT_EQ(errorOf([&] { Files::write(missing + u"/below"_s, "x"); }), 75);
    EXPECT_EQ(errorOf([&] { Shell::open(missing); }), 53);
    Files::write(missing, "x");
    EXPECT_EQ(errorOf([&] { Files::makeFolder(missing + u"/below"_s); }), 75);
}

TEST_F(ProgramFolder, WhatTheWorkstationDoesNotOpenIsTold)
{
    const QString document = Files::inProgramFolder(u"\\x.pdf"_s);
    Files::write(document, "%PDF");
    const QByteArray path = qgetenv("PATH");
    QStringList told;
    Shell::setFailureHandler([&](const QString& target) { told << target; });
    const QString opener = Files::inProgramFolder(u"\\xdg-open"_s);
    const auto openBoth = [&](const char* script) {
        Files::write(opener, QByteArray("#!/bin/sh\n") + script + "\necho \"$1\" >>'" +
                                 Files::inProgramFolder(u"\\opened"_s).toLocal8Bit() + '\'');
        Files::makeExecutable(opener);
        told.clear();
        Shell::open(document);
        Shell::open(u"https://clinica.example/a"_s);
        EXPECT_TRUE(told.isEmpty()) << "not before the event loop has its turn";
        QTest::qWait(300);
    };
    const QStringList both = {document, u"https://clinica.example/a"_s};
    qputenv("PATH", folder.path().toLocal8Bit() + ':' + path);
    openBoth("");
    EXPECT_EQ(told, QStringList());
    EXPECT_THAT(QString::fromLocal8Bit(Files::read(Files::inProgramFolder(u"\\opened"_s))).split(u'\n'),
                testing::UnorderedElementsAre(both[0], both[1], u""_s));
    openBoth("sleep 0.7"); // a viewer that stays open
    EXPECT_EQ(told, QStringList());
    openBoth("exit 3");
    EXPECT_THAT(told, testing::UnorderedElementsAreArray(both));
    openBoth("kill -9 $$");
    EXPECT_THAT(told, testing::UnorderedElementsAreArray(both));
    qputenv("PATH", folder.path().toLocal8Bit() + "/none");
    openBoth("");
    EXPECT_THAT(told, testing::UnorderedElementsAreArray(both)) << "no opener at all";
    qputenv("PATH", path);
    Shell::setFailureHandler({});
}

TEST_F(ProgramFolder, AFullDiskIsToldAndLeavesNothingHalf)
{
    const QString file = Files::inProgramFolder(u"\\tremosilva.ini"_s);
    const QString document = Files::inProgramFolder(u"\\x.pdf"_s);
    Files::write(file, "as it was");
    {
        const FullDisk disk(20);
        EXPECT_EQ(errorOf([&] { Files::write(file, QByteArray(100, 'x')); }), 75);
        EXPECT_EQ(errorOf([&] { Files::write(file, QByteArray(100'000, 'x')); }), 75);
        OutputFile output;
        EXPECT_TRUE(output.create(document));
        output.writeLine("fifteen letters");
        EXPECT_EQ(errorOf([&] { output.writeLine("and more"); }), 75);
        EXPECT_EQ(errorOf([&] { output.writeLine(""); }), 75);
    }
    EXPECT_EQ(Files::read(file), "as it was");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList{u"tremosilva.ini"_s});
}

TEST_F(ProgramFolder, ProfileValues)
{
    const QString file = Files::inProgramFolder(u"\\a.ini"_s);
    Files::write(file,
                 "stray=0\r\n[Other]\r\nkey=1\r\n[CONFIG]\r\n Key = two words \r\nempty=\r\nkey=later\r\n"
                 "\xe3=\xe7\r\n[After]\r\nafter=3\r\n");
    for (const QStringList& row : textTable(u"config=KEY=two words|CONFIG=empty=|CONFIG=stray=none|"
                                            "CONFIG=after=none|Other=key=1|CONFIG=ã=ç"))
        EXPECT_EQ(Files::profileValue(row[0], row[1], u"none"_s, file), row[2]) << row[1].toStdString();
    EXPECT_EQ(Files::profileValue(u"CONFIG"_s, u"key"_s, u"none"_s, file, 4), u"two");
}

TEST(Http, AnswersComeBackWholeOrAsAnError)
{
    const QByteArray head = "HTTP/1.1 200 OK\r\n";
    const struct
    {
        QByteArray answer;
        int status;
        QByteArray body;
        int getError = 0, downloadError = getError;
    } rows[] = {
        {OneAnswer::http("200 OK", QByteArray("\0\r\n\x1a\xff", 5)), 200, QByteArray("\0\r\n\x1a\xff", 5)},
        {OneAnswer::http("404 Not Found", "gone"), 404, "gone"},
        {"HTTP/1.1 503 Busy\r\n\r\nlater", 503, "later"},
        {OneAnswer::http("200 OK", "#!/bin/sh\n").chopped(1), 0, {}, 12030},
        {"HTTP/1.1 302 Found\r\nLocation: ftp://127.0.0.1/x\r\nContent-Length: 0\r\n\r\n", 0, {}, 12156},
        // Without a length a file is not known to be whole.
        {head + "Transfer-Encoding: chunked\r\n\r\n2\r\nab\r\n0\r\n\r\n", 200, "ab", 0, 12152},
        {head + "\r\nab", 200, "ab", 0, 12152},
    };
    // Which of the events of a broken connection comes first is chance.
    for (int i = 0; i < 10; ++i)
        for (const auto& row : rows) {
            OneAnswer server(row.answer);
            Http::Response answer;
            const auto read = [&] {
                answer = (i % 2 ? Http::get : Http::download)(server.host() + u"/ws/1"_s, 5s, "Mozilla/5.0");
            };
            const int error = i % 2 ? row.getError : row.downloadError;
            EXPECT_EQ(errorOf(read), error) << row.answer.toStdString();
            EXPECT_EQ(answer.status, error ? 0 : row.status) << row.answer.toStdString();
            EXPECT_EQ(answer.body, error ? QByteArray() : row.body) << row.answer.toStdString();
            for (const auto* line : {"GET /ws/1 HTTP/1.1\r\n", "\r\nUser-Agent: Mozilla/5.0\r\n",
                                     "\r\nAccept-Encoding: identity\r\n"})
                EXPECT_TRUE(server.request().contains(line)) << line;
        }
}

TEST(Http, ARedirectionAndItsAnswerOnOneConnection)
{
    Server server([&server](QTcpSocket& socket, const QByteArray& path) {
        const int hops = path.mid(1).toInt();
        const QString next = QString::number(hops - 1);
        const QByteArray location = (hops % 2 ? server.at(next) : next).toLatin1();
        socket.write(hops == 0 ? OneAnswer::http("200 OK", "the whole content")
                               : OneAnswer::http("302 Found\r\nLocation: " + location, "away"));
    });
    for (int i = 1; i <= 200; ++i) {
        const auto read = [&] { return (i % 2 ? Http::get : Http::download)(server.at(u"1"_s), 5s, {}); };
        ASSERT_EQ(errorOf([&] { EXPECT_EQ(read().body, "the whole content"); }), 0) << i;
        ASSERT_EQ(server.connections, i);
    }
    EXPECT_EQ(Http::get(server.at(u"10"_s), 5s).body, "the whole content");
    EXPECT_EQ(errorOf([&] { Http::get(server.at(u"11"_s), 5s); }), 12156);
}

TEST(Http, AnAnswerThatDripsOrHasNoEndIsLeft)
{
    QTimer drip;
    Server server([&](QTcpSocket& socket, const QByteArray&) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 20\r\n\r\n");
        QObject::connect(&drip, &QTimer::timeout, &socket, [&socket] { socket.write("x"); });
        drip.start(20ms);
    });
    EXPECT_EQ(errorOf([&] { Http::get(server.at({}), 200ms); }), 12002);
    EXPECT_EQ(Http::download(server.at({}), 200ms).body.size(), 20);

    constexpr int Most = 1'000'000;
    Server great([&](QTcpSocket& socket, const QByteArray& path) {
        socket.write(OneAnswer::http("200 OK", QByteArray(Most + path.mid(1).toInt(), 'x')));
    });
    EXPECT_EQ(Http::get(great.at(u"0"_s), 5s).body.size(), Most);
    EXPECT_EQ(errorOf([&] { Http::get(great.at(u"1"_s), 5s); }), 12152);
    EXPECT_EQ(Http::download(great.at(u"1"_s), 5s).body.size(), Most + 1);
}

TEST(Http, HttpsIsKeptAndItsCertificateChecked)
{
    const QTemporaryDir folder;
    const QSslConfiguration tls = ownCertificate(folder);
    {
        OneAnswer stranger(OneAnswer::http("200 OK", "ab"), tls);
        EXPECT_EQ(errorOf([&] { Http::download(stranger.host(), 5s); }), 12175);
    }
    const QSslConfiguration before = QSslConfiguration::defaultConfiguration();
    QSslConfiguration trusting = before;
    trusting.addCaCertificates(tls.localCertificateChain());
    QSslConfiguration::setDefaultConfiguration(trusting);
    OneAnswer known(OneAnswer::http("200 OK", "ab"), tls);
    EXPECT_EQ(Http::download(known.host(), 5s).body, "ab");
    OneAnswer open(OneAnswer::http("200 OK", "not for https"));
    OneAnswer away(
        "HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: " + open.host().toLatin1() + "/\r\n\r\n", tls);
    EXPECT_EQ(errorOf([&] { Http::download(away.host(), 5s); }), 12156);
    QSslConfiguration::setDefaultConfiguration(before);
}

TEST(Http, NobodyAnswers)
{
    OneAnswer silent("");
    EXPECT_EQ(errorOf([&] { Http::download(silent.host(), 200ms); }), 12002);
    OneAnswer unsafe(OneAnswer::http("200 OK", "ab"));
    EXPECT_EQ(errorOf([&] { Http::get(unsafe.host().replace(u"http:"_s, u"https:"_s), 5s); }), 12175);
    EXPECT_EQ(errorOf([] { Http::get(OneAnswer::closedHost(), 5s); }), 12029);
    for (const QString& address : {u"ftp://127.0.0.1/"_s, u"http://"_s})
        EXPECT_EQ(errorOf([&] { Http::get(address, 5s); }), 12005);
}
