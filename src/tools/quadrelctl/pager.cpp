// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "pager.h"

#include <QtCore/QProcess>
#include <QtCore/QStringList>

#include <csignal>

namespace {

QString command()
{
    return qEnvironmentVariableIsSet("PAGER") ? qEnvironmentVariable("PAGER")
                                              : QStringLiteral("less");
}

/** An interrupt is for the pager while it runs. */
class InterruptPause {
public:
    InterruptPause()
        : m_former(std::signal(SIGINT, SIG_IGN))
    {
    }
    ~InterruptPause() { std::signal(SIGINT, m_former); }
    Q_DISABLE_COPY(InterruptPause)

private:
    void (*m_former)(int);
};

} // namespace

bool Pager::show(const QByteArray& text)
{
    QStringList words = QProcess::splitCommand(command());
    if (words.isEmpty() || words.first() == QStringLiteral("cat"))
        return false;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    // End at once if all fits, pass colour on, leave the text on the screen.
    if (!environment.contains(QStringLiteral("LESS")))
        environment.insert(QStringLiteral("LESS"), QStringLiteral("FRX"));

    QProcess pager;
    pager.setProcessEnvironment(environment);
    pager.setProcessChannelMode(QProcess::ForwardedChannels);
    pager.start(words.takeFirst(), words);
    if (!pager.waitForStarted(-1))
        return false;
    const InterruptPause pause;
    pager.write(text);
    pager.closeWriteChannel();
    pager.waitForFinished(-1);
    return true;
}
