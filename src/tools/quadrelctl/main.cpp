#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QLibrary>

#include <cstdio>

namespace {

/** The module lies beside the program, or in the folder of libraries beside the program's. */
QString modulePath()
{
    const QString name = QStringLiteral("/libquadrelctl_module.so");
    const QString folder = QCoreApplication::applicationDirPath();
    const QString beside = folder + name;
    return QFile::exists(beside) ? beside
                                 : QDir::cleanPath(folder + QStringLiteral("/../lib") + name);
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("quadrelctl"));
    QCoreApplication::setApplicationVersion(QStringLiteral(QUADRELCTL_VERSION));

    QLibrary module(modulePath());
    // Its threads and singletons stay until the process ends.
    module.setLoadHints(QLibrary::PreventUnloadHint);
    const auto run = reinterpret_cast<int (*)(int, char**)>(module.resolve("quadrelctlRun"));
    if (!run) {
        std::fprintf(stderr, "quadrelctl: %s\n", qPrintable(module.errorString()));
        return 1;
    }
    return run(argc, argv);
}
