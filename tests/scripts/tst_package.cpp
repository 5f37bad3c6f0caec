#include "checkout.h"
#include "testfiles.h"

#include <QTest>

namespace {

/// A copy of the project on a machine that can do all but make a fresh Debian, which stops at its first step.
struct PackageCheckout : Checkout
{
    PackageCheckout()
    {
        standin("id", "echo 0\n");
        standin("cpack", "mkdir -p packages\n"
                         "echo package >packages/lumipad_2.0_amd64.deb\n"
                         "echo sources >packages/lumipad-2.0.tar.gz\n");
        standin("dpkg-deb",
                "case $1 in\n"
                "--extract) mkdir -p \"$3/usr/share/applications\" ;;\n"
                "--contents) echo '-rw-r--r-- root/root 1 2020-01-01 00:00 ./usr/bin/lumipad' ;;\n"
                "--field) echo 'libc6 (>= 2.34)' ;;\n"
                "esac\n");
        standin("tar", "echo lumipad-2.0/CMakeLists.txt\n");
        standin("git", "[[ $* != *ls-files* ]] || echo CMakeLists.txt\n");
        standin(
            "apt-get",
            "[[ $1 != indextargets ]] ||\n"
            "    echo \"$(. /etc/os-release && echo \"$VERSION_CODENAME\") http://mirror.invalid/debian\"\n"
            "[[ $* != *' -y '* ]] || exit 100\n");
        standin("debootstrap", "echo 'I: Retrieving'\necho 'E: Failed getting the release file'\nexit 1\n");
        for (const char* tool : {"lintian", "desktop-file-validate", "appstreamcli", "apt-config", "chroot"})
            standin(QLatin1String(tool), QByteArray());
    }

    /// Takes a tool away together with the package of the same name, which cannot be installed.
    void uninstall(const QString& tool) const
    {
        without(tool);
        standin("dpkg-query", "[[ $* == *' " + tool.toUtf8() + "' ]] || echo 'installed '\n");
    }
};

} // namespace

class PackageTest : public QObject
{
    Q_OBJECT

private slots:
    void leavesOutWhatCannotBeDoneAndDoesTheRest_data();
    void leavesOutWhatCannotBeDoneAndDoesTheRest();
    void asksThroughTheProxyOfTheUser();
    void stopsAtAnErrorOfAValidator();
    void makesThePackagesOfEachQtInAFolderOfTheirOwn();
};

void PackageTest::leavesOutWhatCannotBeDoneAndDoesTheRest_data()
{
    QTest::addColumn<QString>("missing");
    QTest::addColumn<QByteArray>("sentence");
    QTest::newRow("network") << "network"
                             << QByteArray(
                                    "the fresh Debian, as debootstrap could not fetch one: E: Failed getting "
                                    "the release file");
    QTest::newRow("network for what it depends on")
        << "dependencies"
        << QByteArray("the fresh Debian, as apt-get could not fetch what the package depends on: ");
    QTest::newRow("mirror") << "mirror" << QByteArray("the fresh Debian, as apt-get names no mirror for ");
    QTest::newRow("root") << "root" << QByteArray("the fresh Debian, as only root can make one.");
    QTest::newRow("debootstrap") << "debootstrap"
                                 << QByteArray("the fresh Debian, as debootstrap is not here.");
    QTest::newRow("room") << "room" << QByteArray("the fresh Debian, as it needs 1500 MB on the disk of ");
}

void PackageTest::leavesOutWhatCannotBeDoneAndDoesTheRest()
{
    QFETCH(QString, missing);
    QFETCH(QByteArray, sentence);
    const PackageCheckout checkout;
    if (missing == "dependencies") {
        checkout.standin("debootstrap", "mkdir -p \"$3/etc/apt/apt.conf.d\"\n");
        checkout.standin("chroot", "echo 'E: Unable to fetch some archives'\nexit 100\n");
    } else if (missing == "mirror") {
        checkout.standin("apt-get", QByteArray());
    } else if (missing == "root") {
        // Nor is there sudo, which could install what the validators need.
        checkout.standin("id", "echo 1000\n");
        checkout.without("sudo");
        checkout.uninstall("debootstrap");
    } else if (missing == "debootstrap") {
        checkout.uninstall("debootstrap");
    } else if (missing == "room") {
        checkout.leave(1499);
        checkout.uninstall("lintian");
    }
    const bool lintian = missing != "room";

    const Outcome outcome = checkout.run({"scripts/package"});
    QCOMPARE(outcome.errors, QByteArray());
    QCOMPARE(outcome.code, 0);
    QVERIFY2(outcome.output.contains("\nLeft out: " + sentence), outcome.output.constData());
    // Its tools are named one by one.
    QCOMPARE(outcome.output.contains("\nLeft out: lintian, which is not here.\n"), !lintian);
    QCOMPARE(outcome.output.count("Left out: "), lintian ? 1 : 2);
    QCOMPARE(outcome.called("lintian "), lintian);
    QVERIFY(outcome.called("desktop-file-validate ") && outcome.called("appstreamcli validate --no-net "));
    const QByteArray packages = checkout.path("build/package/packages").toUtf8() + '/';
    QVERIFY(outcome.output.endsWith("The package:         " + packages +
                                    "lumipad_2.0_amd64.deb\nThe source archive:  " + packages +
                                    "lumipad-2.0.tar.gz\n"));
}

void PackageTest::asksThroughTheProxyOfTheUser()
{
    PackageCheckout checkout;
    checkout.set("http_proxy", "http://proxy.invalid:8080");
    checkout.standin("debootstrap", "echo \"through $http_proxy\"\nexit 1\n");
    const Outcome outcome = checkout.run({"scripts/package"});
    QVERIFY2(outcome.output.contains("could not fetch one: through http://proxy.invalid:8080\n"),
             outcome.output.constData());
}

void PackageTest::stopsAtAnErrorOfAValidator()
{
    const PackageCheckout checkout;
    checkout.standin("lintian", "echo 'E: lumipad: something'\nexit 1\n");
    const Outcome outcome = checkout.run({"scripts/package"});
    QCOMPARE(outcome.code, 1);
    QVERIFY(outcome.output.contains("E: lumipad: something\n"));
    QCOMPARE(outcome.errors,
             QByteArray("scripts/package: lintian found something; its own lines above say what.\n"));
    QVERIFY(!outcome.called("debootstrap"));
}

void PackageTest::makesThePackagesOfEachQtInAFolderOfTheirOwn()
{
    PackageCheckout checkout;
    checkout.set("LUMIPAD_QT", "6");
    const Outcome outcome = checkout.run({"scripts/package"});
    QCOMPARE(outcome.code, 0);
    QVERIFY(!outcome.calls.filter("-DLUMIPAD_QT=6").isEmpty());
    QVERIFY2(outcome.output.contains(
                 "The package:         " + checkout.path("build/package-qt6/packages").toUtf8() +
                 "/lumipad_2.0_amd64.deb\n"),
             outcome.output.constData());
}

QTEST_GUILESS_MAIN(PackageTest)
#include "tst_package.moc"
