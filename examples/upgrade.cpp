// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

// Upgrades a unit, with a progress bar: upgrade 192.168.1.10 STREAMED ADDRESSED
#include <quadrellink/unitsession.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QFile>
#include <QtCore/QTextStream>

#include <csignal>

namespace {

UnitSession* interrupted = nullptr;

QByteArray contentsOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = application.arguments();
    QTextStream out(stdout);
    const std::optional<UnitAddress> address = UnitAddress::fromText(arguments.value(1));
    const QByteArray streamed = contentsOf(arguments.value(2));
    const QByteArray addressed = contentsOf(arguments.value(3));
    if (!address || streamed.isEmpty() || addressed.isEmpty()) {
        out << "usage: upgrade ADDRESS STREAMED ADDRESSED\n";
        return 2;
    }

    UnitSession session(*address);
    interrupted = &session;
    std::signal(SIGINT, [](int) { interrupted->cancel(); });
    const UnitResult result =
        session.run(UnitRequest::upgrade(streamed, addressed), [&out](const UnitProgress& step) {
            constexpr int width = 40;
            const int filled = static_cast<int>(width * step.done / step.total);
            out << "\r[" << QString(filled, '#') << QString(width - filled, '.') << "] ";
            out.flush();
        });
    out << (result ? QStringLiteral("\ndone\n") : '\n' + result.failure.text + '\n');
    return result ? 0 : 1;
}
