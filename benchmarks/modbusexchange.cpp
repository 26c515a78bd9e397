// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "loopback.h"
#include "loopbackclient.h"
#include "rows.h"
#include "timing.h"
#include "unitaddresses.h"

#include <QtCore/QEventLoop>
#include <QtNetwork/QTcpServer>
#include <QtSerialBus/QModbusTcpClient>
#include <QtSerialBus/QModbusTcpServer>

#include <modbus.h>

#include <cerrno>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int exchangesInTurn = 200;
/** The most that a request may ask for. */
constexpr int registersInRequest = 125;
constexpr int bytesInRequest = 2 * registersInRequest;

void checkModbus(bool succeeded, const char* what)
{
    if (!succeeded)
        qFatal("%s: %s", what, modbus_strerror(errno));
}

class ModbusServer {
public:
    ModbusServer()
        : m_registers(modbus_mapping_new(0, 0, registersInRequest, 0))
        , m_context(modbus_new_tcp("127.0.0.1", 0))
    {
        const int listener = modbus_tcp_listen(m_context, 1);
        sockaddr_in address = {};
        socklen_t size = sizeof address;
        checkModbus(
            getsockname(listener, reinterpret_cast<sockaddr*>(&address), &size) == 0, "listen");
        m_port = ntohs(address.sin_port);
        const OtherSide side;
        m_thread = std::thread([this, listener] { answer(listener); });
    }

    /** The client has to be gone by then. */
    ~ModbusServer()
    {
        m_thread.join();
        modbus_free(m_context);
        modbus_mapping_free(m_registers);
    }

    Q_DISABLE_COPY_MOVE(ModbusServer)

    int port() const { return m_port; }

private:
    void answer(int listener)
    {
        modbus_tcp_accept(m_context, &listener);
        quint8 request[MODBUS_TCP_MAX_ADU_LENGTH];
        for (;;) {
            const int size = modbus_receive(m_context, request);
            if (size < 0)
                break;
            if (size > 0)
                modbus_reply(m_context, request, size, m_registers);
        }
        modbus_close(m_context);
        close(listener);
    }

    modbus_mapping_t* const m_registers;
    modbus_t* const m_context;
    int m_port;
    std::thread m_thread;
};

class ModbusClient {
public:
    explicit ModbusClient(int port)
        : m_context(modbus_new_tcp("127.0.0.1", port))
    {
        checkModbus(modbus_connect(m_context) == 0, "connect");
    }

    ~ModbusClient()
    {
        modbus_close(m_context);
        modbus_free(m_context);
    }

    Q_DISABLE_COPY_MOVE(ModbusClient)

    void read(int requests)
    {
        quint16 registers[registersInRequest];
        for (int i = 0; i < requests; ++i)
            checkModbus(modbus_read_registers(m_context, 0, registersInRequest, registers)
                    == registersInRequest,
                "read");
    }

private:
    modbus_t* const m_context;
};

quint16 freePort()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    return server.serverPort();
}

void connectDevice(QModbusDevice& device, quint16 port)
{
    device.setConnectionParameter(
        QModbusDevice::NetworkAddressParameter, QStringLiteral("127.0.0.1"));
    device.setConnectionParameter(QModbusDevice::NetworkPortParameter, port);
    if (!device.connectDevice())
        qFatal("%s", qPrintable(device.errorString()));
}

class QtModbusServer {
public:
    QtModbusServer()
    {
        const OtherSide side;
        m_context.moveToThread(&m_thread);
        m_thread.start();
        const auto start = [this] {
            m_server = std::make_unique<QModbusTcpServer>();
            m_server->setMap({{QModbusDataUnit::HoldingRegisters,
                {QModbusDataUnit::HoldingRegisters, 0, registersInRequest}}});
            m_server->setServerAddress(1);
            connectDevice(*m_server, m_port);
        };
        QMetaObject::invokeMethod(&m_context, start, Qt::BlockingQueuedConnection);
    }

    ~QtModbusServer()
    {
        QMetaObject::invokeMethod(
            &m_context, [this] { m_server.reset(); }, Qt::BlockingQueuedConnection);
        m_thread.quit();
        m_thread.wait();
    }

    Q_DISABLE_COPY_MOVE(QtModbusServer)

    quint16 port() const { return m_port; }

private:
    const quint16 m_port = freePort();
    QThread m_thread;
    QObject m_context;
    std::unique_ptr<QModbusTcpServer> m_server;
};

class QtModbusClient {
public:
    explicit QtModbusClient(quint16 port)
    {
        QObject::connect(&m_client, &QModbusDevice::stateChanged, &m_loop, &QEventLoop::quit);
        connectDevice(m_client, port);
        while (m_client.state() != QModbusDevice::ConnectedState)
            m_loop.exec();
    }

    void read(int requests)
    {
        m_left = requests;
        sendRequest();
        m_loop.exec();
    }

private:
    void sendRequest()
    {
        QModbusReply* reply =
            m_client.sendReadRequest({QModbusDataUnit::HoldingRegisters, 0, registersInRequest}, 1);
        QObject::connect(reply, &QModbusReply::finished, &m_loop, [this, reply] {
            if (reply->result().valueCount() != registersInRequest)
                qFatal("%s", qPrintable(reply->errorString()));
            reply->deleteLater();
            if (--m_left > 0)
                sendRequest();
            else
                m_loop.quit();
        });
    }

    QEventLoop m_loop;
    QModbusTcpClient m_client;
    int m_left = 0;
};

/** What the exchanges of both sides count: each by the bytes that it reads, or all alike. */
struct Weight {
    double ours;
    double reference;
};

/** Bytes in a microsecond are megabytes in a second. */
constexpr Weight bytes{QuadrelUnit::Address::recordLength, bytesInRequest};
constexpr Weight thousandExchanges{1000, 1000};

/** The weight of the exchanges in a microsecond. */
template <typename Server, typename Client> class ReadRate : public Comparison {
public:
    explicit ReadRate(Weight weight)
        : m_weight(weight)
    {
    }

    double ours() override
    {
        using namespace QuadrelUnit;
        const double time = microsecondsPerCall(
            exchangesInTurn, [this] { m_ours.readBlock(Address::events, Address::recordLength); });
        m_ours.finish();
        return m_weight.ours / time;
    }

    double reference() override
    {
        const double time = microsecondsPerCall(1, [this] { m_client.read(exchangesInTurn); });
        return m_weight.reference * exchangesInTurn / time;
    }

private:
    const Weight m_weight;
    LoopbackUnit m_unit;
    LoopbackClient m_ours{m_unit.port()};
    Server m_server;
    Client m_client{m_server.port()};
};

template <typename Server, typename Client>
Rows ratesBeside(const std::string& reference, Limit onOneProcessor, Limit onTwoProcessors)
{
    using Rate = ReadRate<Server, Client>;
    constexpr int turns = 51;
    return joined({
        inBothPlacements({"configuration read / " + reference, "MB/s", {}, turns,
                             [] { return std::make_unique<Rate>(bytes); }},
            onOneProcessor, onTwoProcessors),
        inBothPlacements({"exchanges of that read / " + reference, "1000/s", {}, turns,
                             [] { return std::make_unique<Rate>(thousandExchanges); }},
            {}, {}),
    });
}

} // namespace

Rows modbusExchangeRows()
{
    return joined({
        ratesBeside<ModbusServer, ModbusClient>(
            "libmodbus", {Limit::RatioAtLeast, 1.25}, {Limit::RatioAtLeast, 2}),
        ratesBeside<QtModbusServer, QtModbusClient>(
            "framework's Modbus", {Limit::RatioAtLeast, 2}, {Limit::RatioAtLeast, 3}),
    });
}
