#include "checkout.h"
#include "testfiles.h"

#include <QDir>
#include <QTest>

#include <utility>

/// Skips the rest of a test on a machine that lets nobody mount; true when it does not.
#define NEEDS_MOUNTS(checkout)                                                                               \
    if ((checkout).run(onlyreadable({"uname"})).code != 0) {                                                 \
        QTest::qSkip("This machine lets nobody mount", __FILE__, __LINE__);                                  \
        return;                                                                                              \
    }

namespace {

/// What ./run prints when there is nothing to do but start the program.
const char* const startedAtOnce = "started  with no folder of its own\n";

/// \a words run with /tmp as a disk that can only be read, in which the current folder can be written all the
/// same.
QStringList onlyreadable(const QStringList& words)
{
    const QString prepare = "mount --bind \"$PWD\" \"$PWD\" && mount --rbind /tmp /tmp && "
                            "mount -o remount,bind,ro /tmp && cd \"$PWD\" && \"$@\"";
    return QStringList{"unshare", "--mount", "--map-root-user", "bash", "-c", prepare, "bash"} + words;
}

bool isonesentence(const QByteArray& text)
{
    return text.count('\n') == 1 && text.endsWith(".\n") && !text.trimmed().contains('\n');
}

/// A copy in which everything has been built.
struct BuiltCheckout : Checkout
{
    BuiltCheckout()
    {
        if (run().code != 0)
            qFatal("./run does not build and start in the copy of the project.");
    }
};

} // namespace

class RunTest : public QObject
{
    Q_OBJECT

private slots:
    void buildsAndStartsTheProgram();
    void startsWhatIsBuiltAtOnce();
    void buildsAgainAfterAChange_data();
    void buildsAgainAfterAChange();
    void buildsAgainInAnotherPlace();
    void buildsWithTheQtThatTheCallerNames();
    void refusesAQtThatItDoesNotKnow();
    void buildsWithTheQtThatIsThere();
    void installsTheQtThatCanBeHad_data();
    void installsTheQtThatCanBeHad();
    void doesNotStartAfterAFailedBuild();
    void startsThroughALink_data();
    void startsThroughALink();
    void startsWhereTemporaryFilesCannotLie_data();
    void startsWhereTemporaryFilesCannotLie();
    void startsWithATmpThatCanOnlyBeRead();
    void saysWhyNothingStartsWhereNothingCanBeWritten();
    void saysWhyAVirtualDisplayCannotBe();
    void refusesForLackOfSpaceBeforeAFirstBuildOnly();
    void saysHowMuchItInstallsBefore_data();
    void saysHowMuchItInstallsBefore();
    void installsNothingWithoutRoom();
    void saysWhatIsMissingToInstall_data();
    void saysWhatIsMissingToInstall();
};

void RunTest::buildsAndStartsTheProgram()
{
    const Checkout checkout;
    const Outcome outcome = checkout.run();
    QCOMPARE(outcome.code, 0);
    QVERIFY(outcome.called("cmake -S " + checkout.path() + " -B " + checkout.path("build/release") + " "));
    QVERIFY(outcome.called("cmake --build " + checkout.path("build/release") + " --target lumipad"));
    QVERIFY2(outcome.output.endsWith(startedAtOnce), outcome.output.constData());
    QVERIFY(outcome.output.startsWith("Building Lumipad"));
    QCOMPARE(outcome.errors, QByteArray());
}

void RunTest::startsWhatIsBuiltAtOnce()
{
    const BuiltCheckout checkout;
    const Outcome outcome = checkout.run();
    QCOMPARE(outcome.code, 0);
    QCOMPARE(outcome.calls, QStringList());
    QCOMPARE(outcome.output, QByteArray(startedAtOnce));
    QCOMPARE(outcome.errors, QByteArray());
}

void RunTest::buildsAgainAfterAChange_data()
{
    QTest::addColumn<QStringList>("change");
    QTest::newRow("a changed file") << QStringList{"touch", "app/main.cpp"};
    // Makes no new program, so the program stays older than the file.
    QTest::newRow("a changed list of files") << QStringList{"touch", "CMakeLists.txt"};
    QTest::newRow("a new file") << QStringList{"touch", "resources/new.xml"};
    QTest::newRow("a file that was taken away") << QStringList{"rm", "app/main.cpp"};
    QTest::newRow("a missing program") << QStringList{"rm", "build/release/app/lumipad"};
    QTest::newRow("an emptied build folder") << QStringList{"rm", "-r", "build/release"};
}

void RunTest::buildsAgainAfterAChange()
{
    QFETCH(QStringList, change);
    const BuiltCheckout checkout;
    QCOMPARE(checkout.run(change).code, 0);
    const Outcome outcome = checkout.run();
    QVERIFY(outcome.called("cmake --build "));
    QVERIFY2(outcome.output.endsWith(startedAtOnce), outcome.output.constData());
    QCOMPARE(checkout.run().calls, QStringList());
}

void RunTest::buildsAgainInAnotherPlace()
{
    const BuiltCheckout checkout;
    QVERIFY(QDir().rename(checkout.path(), checkout.beside("moved")));
    checkout.leave(500);
    // What was built elsewhere is of no use, so this is a first build.
    const Outcome cramped = checkout.run({"./run"}, checkout.beside("moved"));
    QVERIFY(cramped.code != 0 && !cramped.called("cmake"));
    checkout.leave(100000);
    const Outcome outcome = checkout.run({"./run"}, checkout.beside("moved"));
    QVERIFY(outcome.called("cmake -S " + checkout.beside("moved") + " "));
    QVERIFY2(outcome.output.endsWith(startedAtOnce), outcome.output.constData());
}

void RunTest::buildsWithTheQtThatTheCallerNames()
{
    BuiltCheckout checkout;
    checkout.set("LUMIPAD_QT", "6");
    const Outcome outcome = checkout.run();
    QCOMPARE(outcome.errors, QByteArray());
    QVERIFY(outcome.called("cmake -S " + checkout.path() + " -B " + checkout.path("build/release-qt6") +
                           " -G Ninja -DLUMIPAD_WERROR=ON -DCMAKE_BUILD_TYPE=Release -DLUMIPAD_QT=6"));
    QVERIFY2(outcome.output.endsWith(startedAtOnce), outcome.output.constData());
    // Each Qt has a folder of its own, so neither build is in the other's way.
    QCOMPARE(checkout.run().calls, QStringList());
    checkout.unset("LUMIPAD_QT");
    QCOMPARE(checkout.run().calls, QStringList());
}

void RunTest::refusesAQtThatItDoesNotKnow()
{
    Checkout checkout;
    checkout.set("LUMIPAD_QT", "7");
    const Outcome outcome = checkout.run();
    QCOMPARE(outcome.code, 1);
    QCOMPARE(outcome.errors, QByteArray("./run: LUMIPAD_QT is \"7\": it takes 5, 6, or nothing.\n"));
    QCOMPARE(outcome.calls, QStringList());
}

void RunTest::buildsWithTheQtThatIsThere()
{
    const BuiltCheckout checkout;
    checkout.standin("dpkg-query", "[[ $* == *' qtbase5-dev' ]] || echo 'installed '\n");
    QCOMPARE(checkout.run({"touch", "app/main.cpp"}).code, 0);
    const Outcome outcome = checkout.run();
    QVERIFY(outcome.called("cmake -S " + checkout.path() + " -B " + checkout.path("build/release") +
                           " -G Ninja -DLUMIPAD_WERROR=ON -DCMAKE_BUILD_TYPE=Release -DLUMIPAD_QT=6"));
    QVERIFY(!outcome.called("apt-get"));
    QVERIFY2(outcome.output.endsWith(startedAtOnce), outcome.output.constData());
}

void RunTest::installsTheQtThatCanBeHad_data()
{
    QTest::addColumn<QString>("manager");
    QTest::addColumn<bool>("both");
    QTest::addColumn<QString>("installed");
    QTest::newRow("Debian with both") << "apt-get" << true << "qtbase5-dev";
    QTest::newRow("Debian with Qt 6 only") << "apt-get" << false << "qt6-base-dev";
    QTest::newRow("Homebrew with both") << "brew" << true << "qt@5";
    QTest::newRow("Homebrew with Qt 6 only") << "brew" << false << "qt";
}

void RunTest::installsTheQtThatCanBeHad()
{
    QFETCH(QString, manager);
    QFETCH(bool, both);
    QFETCH(QString, installed);
    const Checkout checkout;
    checkout.standin("id", "echo 0\n");
    const QByteArray had = both ? "true" : "[[ $* != *qt*5* ]]";
    if (manager == "apt-get") {
        checkout.standin("dpkg-query", "[[ $* == *' qt'* ]] || echo 'installed '\n");
        checkout.standin("apt-cache", had + " && echo \"$2 | 1.0\" || true\n");
    } else {
        checkout.without("apt-get");
        checkout.standin("brew", "case $1 in\n"
                                 "list) [[ $* != *' qt'* ]] ;;\n"
                                 "info) " +
                                     had +
                                     " ;;\n"
                                     "esac\n");
    }
    const Outcome outcome = checkout.run();
    QCOMPARE(outcome.errors, QByteArray());
    const QStringList installs =
        outcome.calls.filter(manager == "apt-get" ? QStringLiteral(" -y ") : QStringLiteral("brew install"));
    QCOMPARE(installs.size(), 1);
    QVERIFY2(installs.first().endsWith(" " + installed), qPrintable(installs.first()));
    QVERIFY(!outcome.calls
                 .filter(installed.contains("5") ? QStringLiteral("-DLUMIPAD_QT=5")
                                                 : QStringLiteral("-DLUMIPAD_QT=6"))
                 .isEmpty());
}

void RunTest::doesNotStartAfterAFailedBuild()
{
    const BuiltCheckout checkout;
    QCOMPARE(checkout.run({"touch", "app/main.cpp"}).code, 0);
    checkout.standin("cmake", "[[ $1 != --build ]]\n");
    for (int times = 0; times < 2; ++times) {
        const Outcome outcome = checkout.run();
        QCOMPARE(outcome.code, 1);
        QVERIFY(!outcome.output.contains("started"));
        QCOMPARE(outcome.errors,
                 QByteArray("./run: the build failed; the compiler's lines above say why.\n"));
    }
}

void RunTest::startsThroughALink_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("link");
    QTest::addColumn<QString>("command");
    QTest::newRow("a link beside the project") << "the project/run"
                                               << "start"
                                               << "./start";
    QTest::newRow("a link to a link") << "second"
                                      << "start"
                                      << "./start";
    QTest::newRow("a link to the folder") << "the project"
                                          << "folder"
                                          << "folder/run";
    QTest::newRow("a link among the commands") << "../the project/run"
                                               << "tools/lumipad-run"
                                               << "lumipad-run";
}

void RunTest::startsThroughALink()
{
    QFETCH(QString, target);
    QFETCH(QString, link);
    QFETCH(QString, command);
    const BuiltCheckout checkout;
    QVERIFY(QFile::link("the project/run", checkout.beside("second")));
    QVERIFY(QFile::link(target, checkout.beside(link)));
    const Outcome outcome = checkout.run({command}, checkout.beside(QString()));
    QCOMPARE(outcome.errors, QByteArray());
    QCOMPARE(outcome.output, QByteArray(startedAtOnce));
    QCOMPARE(outcome.calls, QStringList());
}

void RunTest::startsWhereTemporaryFilesCannotLie_data()
{
    QTest::addColumn<bool>("built");
    QTest::newRow("first build") << false;
    QTest::newRow("built") << true;
}

void RunTest::startsWhereTemporaryFilesCannotLie()
{
    QFETCH(bool, built);
    Checkout checkout;
    if (built)
        QCOMPARE(checkout.run().code, 0);
    checkout.set("TMPDIR", checkout.beside("nowhere"));
    const Outcome outcome = checkout.run();
    QCOMPARE(outcome.errors, QByteArray());
    QVERIFY2(outcome.output.endsWith("started  with " + checkout.path("build/tmp").toUtf8() + "\n"),
             outcome.output.constData());
    QVERIFY(QDir(checkout.path("build/tmp")).exists());
    QCOMPARE(outcome.called("cmake"), !built);
}

void RunTest::startsWithATmpThatCanOnlyBeRead()
{
    const Checkout checkout;
    NEEDS_MOUNTS(checkout);
    QVERIFY(checkout.run(onlyreadable({"touch", "/tmp/lumipad-written"})).code != 0);
    QVERIFY(!QFile::exists("/tmp/lumipad-written"));
    for (const bool built : {false, true}) {
        // The stand-ins cannot note their calls where nothing can be written but the project.
        const Outcome outcome = checkout.run(onlyreadable({"./run"}));
        QVERIFY2(outcome.output.endsWith("started  with " + checkout.path("build/tmp").toUtf8() + "\n"),
                 (outcome.output + outcome.errors).constData());
        QCOMPARE(outcome.output.contains("Building Lumipad"), !built);
    }
}

void RunTest::saysWhyNothingStartsWhereNothingCanBeWritten()
{
    Checkout checkout;
    // No folder of this name can be made, not even by root.
    checkout.set("TMPDIR", checkout.beside("nowhere"));
    writefile(checkout.path("build"), QByteArray());
    const Outcome outcome = checkout.run();
    QCOMPARE(outcome.code, 1);
    QCOMPARE(outcome.calls, QStringList());
    QCOMPARE(outcome.errors, QByteArray("./run: neither the folder for temporary files nor " +
                                        checkout.path("build").toUtf8() + " can be written.\n"));
    checkout.unset("TMPDIR");
    QCOMPARE(checkout.run().errors,
             QByteArray("./run: " + checkout.path("build").toUtf8() + " cannot be written.\n"));
}

void RunTest::saysWhyAVirtualDisplayCannotBe()
{
    Checkout checkout;
    NEEDS_MOUNTS(checkout);
    checkout.unset("DISPLAY");
    const Outcome outcome = checkout.run(onlyreadable({"./run"}));
    QCOMPARE(outcome.code, 1);
    QCOMPARE(outcome.output, QByteArray());
    QCOMPARE(outcome.errors,
             QByteArray("./run: there is no display, and a virtual one needs /tmp, which cannot be "
                        "written.\n"));
}

void RunTest::refusesForLackOfSpaceBeforeAFirstBuildOnly()
{
    const Checkout checkout;
    checkout.leave(999);
    const Outcome first = checkout.run();
    QCOMPARE(first.code, 1);
    QCOMPARE(first.errors, QByteArray("./run: building Lumipad needs 1000 MB on the disk of " +
                                      checkout.path().toUtf8() + ", and only 999 MB are free.\n"));
    QVERIFY(!first.called("cmake"));

    checkout.leave(1000);
    QVERIFY(checkout.run().output.endsWith(startedAtOnce));

    checkout.leave(0);
    QCOMPARE(checkout.run().output, QByteArray(startedAtOnce));
    QCOMPARE(checkout.run({"touch", "app/main.cpp"}).code, 0);
    const Outcome later = checkout.run();
    QVERIFY(later.called("cmake --build "));
    QVERIFY2(later.output.endsWith(startedAtOnce), later.output.constData());
}

void RunTest::saysHowMuchItInstallsBefore_data()
{
    QTest::addColumn<QString>("manager");
    QTest::addColumn<QByteArray>("size");
    QTest::newRow("apt-get") << "apt-get"
                             << QByteArray(
                                    "After this operation, 876 MB of additional disk space will be used.\n");
    QTest::newRow("brew") << "brew" << QByteArray("takes up to 3000 MB\n");
}

void RunTest::saysHowMuchItInstallsBefore()
{
    QFETCH(QString, manager);
    QFETCH(QByteArray, size);
    const Checkout checkout;
    checkout.standin("id", "echo 0\n");
    if (manager == "apt-get") {
        checkout.standin("dpkg-query", "[[ $* == *cmake ]] || echo 'installed '\n");
        checkout.standin("apt-get",
                         "case $* in\n"
                         "*--assume-no*) echo 'Need to get 123 MB of archives.'\n"
                         "    echo 'After this operation, 876 MB of additional disk space will be used.'\n"
                         "    exit 1 ;;\n"
                         "*' -y '*) echo 'Now it is being installed.' ;;\n"
                         "esac\n");
    } else {
        checkout.without("apt-get");
        checkout.standin("brew", "case $1 in\n"
                                 "list) [[ $* != *cmake ]] ;;\n"
                                 "install) echo 'Now it is being installed.' ;;\n"
                                 "esac\n");
    }
    const Outcome outcome = checkout.run();
    QCOMPARE(outcome.code, 0);
    const auto said = outcome.output.indexOf(size);
    QVERIFY2(said >= 0, outcome.output.constData());
    QVERIFY(outcome.output.contains("Installing cmake, "));
    QVERIFY2(outcome.output.indexOf("Now it is being installed.") > said, outcome.output.constData());
    QVERIFY(outcome.output.endsWith(startedAtOnce));
}

void RunTest::installsNothingWithoutRoom()
{
    const Checkout checkout;
    checkout.standin("id", "echo 0\n");
    checkout.standin("dpkg-query", "[[ $* == *cmake ]] || echo 'installed '\n");
    checkout.leave(1499);
    const Outcome outcome = checkout.run();
    QCOMPARE(outcome.code, 1);
    QCOMPARE(
        outcome.errors,
        QByteArray("./run: installing cmake needs 1500 MB on the disk of /, and only 1499 MB are free.\n"));
    QVERIFY(!outcome.called("apt-get"));
}

void RunTest::saysWhatIsMissingToInstall_data()
{
    QTest::addColumn<QStringList>("missing");
    QTest::addColumn<QByteArray>("sentence");
    QTest::newRow("rights") << QStringList{"sudo"}
                            << QByteArray(
                                   "./run: to install cmake it must run as root or find sudo, and neither is "
                                   "so.\n");
    QTest::newRow("a package manager")
        << QStringList{"apt-get", "brew"}
        << QByteArray(
               "./run: neither apt-get (Debian, Ubuntu) nor brew (macOS) is here to install what Lumipad is "
               "built with.\n");
}

void RunTest::saysWhatIsMissingToInstall()
{
    QFETCH(QStringList, missing);
    QFETCH(QByteArray, sentence);
    const Checkout checkout;
    checkout.standin("id", "echo 1000\n");
    checkout.standin("dpkg-query", "[[ $* == *cmake ]] || echo 'installed '\n");
    for (const QString& tool : std::as_const(missing))
        checkout.without(tool);
    const Outcome outcome = checkout.run();
    QCOMPARE(outcome.code, 1);
    QCOMPARE(outcome.errors, sentence);
    QVERIFY(isonesentence(outcome.errors));
    QVERIFY(!outcome.called("apt-get") && !outcome.called("cmake"));
}

QTEST_GUILESS_MAIN(RunTest)
#include "tst_run.moc"
