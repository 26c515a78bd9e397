#include "unitlink.h"

#include <devicemanagermodel.h>
#include <unpackage.h>

#include <QtCore/QCoreApplication>
#include <QtCore/QTextStream>
#include <QtCore/QThread>

namespace {

void printUnit()
{
    DeviceModel device = DeviceManagerModel::Instance()->getCurrentSelectDevice();
    ModelManagement* const data = DeviceManagerModel::Instance()->getDeviceData(device);
    QTextStream out(stdout);
    out.setCodec("UTF-8");
    out << "serial number " << device.getSN() << ", version " << device.getVersion() << '\n';
    EventModel* const events = data->getEventModel();
    for (int i = 0; i < events->size(); ++i) {
        EventInfo event = events->at(i);
        out << "event " << event.getEventId() << ": " << event.getEventProtocal() << "  "
            << event.getEventInstruction() << '\n';
    }
    out << data->getTriggerModel()->size() << " triggers, " << data->getTriggerTimeModel()->size()
        << " time triggers\n";
}

} // namespace

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        QTextStream(stderr) << "usage: minimal HOST PORT\n";
        return 2;
    }

    // Made after the application object, so that it finds configWidget.ini beside the program.
    UnPackage operations;
    UnitLink link(&operations, arguments.at(1), static_cast<quint16>(arguments.at(2).toUInt()));

    // Operations block their thread; this one stays free to carry frames.
    QThread worker;
    operations.moveToThread(&worker);
    worker.start();

    QObject::connect(&operations, &UnPackage::signal_readFinished, &application, [] {
        printUnit();
        QCoreApplication::exit(0);
    });
    QObject::connect(
        &operations, &UnPackage::signal_errored, &application, [](const QString& error) {
            QTextStream err(stderr);
            err.setCodec("UTF-8");
            err << error << '\n';
            QCoreApplication::exit(1);
        });
    QMetaObject::invokeMethod(
        &operations, [&operations] { operations.slot_runReadPackage(ReadDataType); });

    const int result = QCoreApplication::exec();
    worker.quit();
    worker.wait();
    return result;
}
