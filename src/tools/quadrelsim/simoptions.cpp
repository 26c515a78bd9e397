// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include "simoptions.h"

#include <CLI/CLI.hpp>

#include <QtCore/QDir>
#include <QtCore/QRegularExpression>

using namespace QuadrelUnit;

namespace {

constexpr int usageExitCode = 2;

QString text(const std::string& value)
{
    return QString::fromStdString(value);
}

[[noreturn]] void refuse(const std::string& option, const QString& reason)
{
    throw CLI::ValidationError(option, reason.toStdString());
}

FourBytes fourBytes(const std::string& option, const std::string& value)
{
    const std::optional<FourBytes> bytes = parseFourBytes(text(value));
    if (!bytes)
        refuse(option, text(value) + QStringLiteral(" is not of the form 1.2.3.4"));
    return *bytes;
}

QHostAddress hostAddress(const std::string& option, const std::string& value)
{
    const QHostAddress address(text(value));
    if (address.isNull())
        refuse(option, text(value) + QStringLiteral(" is not an IP address"));
    return address;
}

QByteArray hexBytes(const std::string& option, const std::string& value)
{
    const QByteArray digits = QByteArray::fromStdString(value).replace(' ', "");
    const QByteArray bytes = QByteArray::fromHex(digits);
    if (bytes.toHex() != digits.toLower())
        refuse(option, text(value) + QStringLiteral(" is not pairs of hexadecimal digits"));
    return bytes;
}

/** Adds an option for one number of the unit's settings. */
template <typename Number>
CLI::Option* addNumber(CLI::App& app, SimOptions& options, const std::string& name,
    Number UnitSettings::*member, const std::string& help)
{
    const auto take = [&options, member](const Number& value) {
        options.settingChanges.emplace_back(
            [member, value](UnitSettings& settings, int) { settings.*member = value; });
    };
    return app.add_option_function<Number>(name, take, help);
}

/** Adds an option for a version or an address of the unit's settings. */
CLI::Option* addFourBytes(CLI::App& app, SimOptions& options, const std::string& name,
    FourBytes UnitSettings::*member, const std::string& help)
{
    const auto take = [&options, name, member](const std::string& value) {
        const FourBytes bytes = fourBytes(name, value);
        options.settingChanges.emplace_back(
            [member, bytes](UnitSettings& settings, int) { settings.*member = bytes; });
    };
    return app.add_option_function<std::string>(name, take, help);
}

void addNetworkOptions(CLI::App& app, SimOptions& options)
{
    app.add_option_function<std::string>(
           "--listen",
           [&options](
               const std::string& value) { options.address = hostAddress("--listen", value); },
           "Address to listen on, TCP and UDP (default 127.0.0.1)")
        ->type_name("ADDRESS");
    app.add_option("--port", options.port,
           "Port to listen on, with --count of the first unit; 0 takes free ones (default 3801)")
        ->type_name("PORT");
    app.add_option("--count", options.count, "Serve this many units, each on a port of its own")
        ->type_name("COUNT")
        ->check(CLI::Range(1, 10000));
    app.add_option("--max-connections", options.maximumConnections,
           "Clients that a unit takes at a time (default 64)")
        ->type_name("COUNT")
        ->check(CLI::Range(1, 10000));
    app.add_option("--idle-timeout", options.idleTime,
           "Drop a connection after this time without a byte; 0 for never (default 300000)")
        ->type_name("MS")
        ->check(CLI::Range(0, 86400000));
    app.add_option("--latency", options.latency, "Time before each reply (default 0)")
        ->type_name("MS")
        ->check(CLI::Range(0, 3600000));
    app.add_option("--jitter", options.jitter, "Up to this much more time, at random (default 0)")
        ->type_name("MS")
        ->check(CLI::Range(0, 3600000));
    app.add_option("--reset-time", options.resetTime,
           "How long the unit is away after a reset or an upgrade (default 1000)")
        ->type_name("MS")
        ->check(CLI::Range(0, 3600000));
    app.add_flag("--verbose", options.isVerbose, "Report each request on standard error");
}

void addUnitOptions(CLI::App& app, SimOptions& options)
{
    const std::string group = "The unit";
    addNumber(app, options, "--model", &UnitSettings::model, "Model number (default 0x7209)")
        ->type_name("NUMBER")
        ->group(group);
    app.add_option_function<quint64>(
           "--serial",
           [&options](const quint64& value) {
               options.settingChanges.emplace_back([value](UnitSettings& settings, int index) {
                   settings.serialNumber = value + static_cast<quint64>(index);
               });
           },
           "Serial number, with --count of the first unit (default 310000001)")
        ->type_name("NUMBER")
        ->check(CLI::NonNegativeNumber)
        ->group(group);
    addFourBytes(app, options, "--firmware", &UnitSettings::version,
        "Version of the firmware (default 1.0.0.0)")
        ->type_name("A.B.C.D")
        ->group(group);
    // More ports would run into the IO block.
    addNumber(app, options, "--ports", &UnitSettings::serialPorts, "Serial ports (default 9)")
        ->type_name("COUNT")
        ->check(CLI::Range(0, 36))
        ->group(group);
    addNumber(app, options, "--io", &UnitSettings::ioLines, "IO lines (default 12)")
        ->type_name("COUNT")
        ->check(CLI::Range(0, 255))
        ->group(group);
    addNumber(app, options, "--relays", &UnitSettings::relays, "Relays (default 8)")
        ->type_name("COUNT")
        ->check(CLI::Range(0, 255))
        ->group(group);
    addNumber(
        app, options, "--infrared", &UnitSettings::infraredPorts, "Infra-red ports (default 4)")
        ->type_name("COUNT")
        ->check(CLI::Range(0, 255))
        ->group(group);
    addFourBytes(app, options, "--ip", &UnitSettings::ip,
        "Address that the unit reports (default 192.168.1.100)")
        ->type_name("ADDRESS")
        ->group(group);
    addFourBytes(app, options, "--mask", &UnitSettings::mask, "Subnet mask (default 255.255.255.0)")
        ->type_name("ADDRESS")
        ->group(group);
    addFourBytes(app, options, "--gateway", &UnitSettings::gateway, "Gateway (default 192.168.1.1)")
        ->type_name("ADDRESS")
        ->group(group);
    const auto addSwitch = [&](const char* name, bool UnitSettings::*member, bool value,
                               const char* help) {
        app.add_flag_callback(
               name,
               [&options, member, value] {
                   options.settingChanges.emplace_back(
                       [member, value](UnitSettings& settings, int) { settings.*member = value; });
               },
               help)
            ->group(group);
    };
    addSwitch("--dhcp", &UnitSettings::dhcp, true, "The unit reports that DHCP is on");
    addSwitch(
        "--link-down", &UnitSettings::linkUp, false, "The unit reports that its link is down");
    app.add_flag("--sample", options.hasSample, "Start with a sample configuration")->group(group);
    app.add_option_function<std::string>(
           "--memory", [&options](const std::string& value) { options.memoryPath = text(value); },
           "Keep the unit's memory in this file; with --count a folder, with a file for each unit")
        ->type_name("FILE")
        ->group(group);
    app.add_option_function<int>(
           "--max-memory",
           [&options](int value) { options.memoryLimit = Q_INT64_C(1024) * 1024 * value; },
           "Memory that writes may fill (default 64)")
        ->type_name("MIB")
        ->check(CLI::Range(1, 1024))
        ->group(group);
}

void addUpgradeOptions(CLI::App& app, SimOptions& options)
{
    const std::string group = "Upgrades";
    app.add_option_function<std::string>(
           "--upgrade-version",
           [&options](const std::string& value) {
               options.upgradeVersion = fourBytes("--upgrade-version", value);
           },
           "Version after an upgrade (default: the last number goes up by 1)")
        ->type_name("A.B.C.D")
        ->group(group);
    app.add_flag("--print-digests", options.printsDigests,
           "Print name, size and SHA-256 digest of each image received")
        ->group(group);
}

FaultOption faultOption(const std::string& value, int unitCount)
{
    static const QRegularExpression form(QStringLiteral("^(?:(\\d{1,5})(?:-(\\d{1,5}))?:)?(.*)$"),
        QRegularExpression::DotMatchesEverythingOption);
    const QRegularExpressionMatch match = form.match(text(value));
    FaultOption option = {1, unitCount, match.captured(3)};
    if (!match.captured(1).isEmpty()) {
        option.firstUnit = match.captured(1).toInt();
        option.lastUnit =
            match.captured(2).isEmpty() ? option.firstUnit : match.captured(2).toInt();
    }
    if (option.firstUnit < 1 || option.lastUnit > unitCount || option.firstUnit > option.lastUnit)
        refuse("--fault",
            QStringLiteral("\"%1\": units are numbered from 1 to %2")
                .arg(text(value))
                .arg(unitCount));
    QString error;
    if (!UnitFaults().add(option.text, &error))
        refuse("--fault", error);
    return option;
}

void addFaultOptions(CLI::App& app, SimOptions& options, std::vector<std::string>& faults)
{
    const std::string group = "Faults";
    const std::string kinds = UnitFaults::kindNames().join(QStringLiteral(", ")).toStdString();
    app.add_option("--fault", faults,
           "A fault in the N-th reply (KIND@N) or in a share of them (KIND%PERCENT), any number of "
           "times; delay may name its milliseconds (delay:250@3); unit numbers may come "
           "first (7:drop@1, 2-5:drop%10). KIND: "
               + kinds)
        ->type_name("FAULT")
        ->expected(1)
        ->allow_extra_args(false)
        ->take_all()
        ->group(group);
    app.add_option("--seed", options.seed, "Seed of everything random (default 0)")
        ->type_name("NUMBER")
        ->group(group);
}

/** What can only be looked at once all options are known. */
void checkTogether(SimOptions& options, const std::vector<std::string>& faults)
{
    constexpr int lastPort = 65535;
    if (options.port != 0 && options.port + options.unitCount() - 1 > lastPort)
        refuse("--port",
            QStringLiteral("%1 units do not fit between port %2 and %3")
                .arg(options.unitCount())
                .arg(options.port)
                .arg(lastPort));
    for (const std::string& fault : faults)
        options.faults.push_back(faultOption(fault, options.unitCount()));
}

void addDiscoveryOptions(CLI::App& app, SimOptions& options)
{
    const std::string group = "Discovery";
    DiscoveryReply& reply = options.discoveryReply;
    std::vector<CLI::Option*> implying;

    app.add_flag("--discovery", options.answersSearches,
           "Answer searches; each option of this group implies it")
        ->group(group);
    implying.push_back(app.add_option_function<std::string>(
                              "--discovery-listen",
                              [&options](const std::string& value) {
                                  options.discoveryAddress =
                                      hostAddress("--discovery-listen", value);
                              },
                              "Address to hear searches on (default 0.0.0.0)")
                           ->type_name("ADDRESS"));
    implying.push_back(app.add_option("--discovery-port", options.discoveryPort,
                              "Port to hear searches on (default 3800)")
                           ->type_name("PORT"));
    implying.push_back(app.add_option_function<std::string>(
                              "--discovery-name",
                              [&reply](const std::string& value) {
                                  reply.name = QByteArray::fromStdString(value);
                              },
                              "Name by which a search knows the unit (default Zorbe:3100)")
                           ->type_name("TEXT"));
    CLI::Option* payload =
        app.add_option_function<std::string>(
               "--discovery-payload",
               [&options](const std::string& value) {
                   options.discoveryReply.payload = QByteArray::fromStdString(value);
                   options.hasDiscoveryPayload = true;
               },
               "What follows the name (default: port, serial number and version)")
            ->type_name("TEXT");
    CLI::Option* hexPayload = app.add_option_function<std::string>(
                                     "--discovery-payload-hex",
                                     [&options](const std::string& value) {
                                         options.discoveryReply.payload =
                                             hexBytes("--discovery-payload-hex", value);
                                         options.hasDiscoveryPayload = true;
                                     },
                                     "The same as hexadecimal digits")
                                  ->type_name("HEX")
                                  ->excludes(payload);
    implying.push_back(payload);
    implying.push_back(hexPayload);

    const auto addCount = [&](const char* name, int& target, const char* help) {
        implying.push_back(app.add_option(name, target, help)
                               ->type_name("COUNT")
                               ->check(CLI::Range(0, DiscoveryReply::largestDatagram)));
    };
    addCount("--discovery-zeros", reply.zeros, "Zero bytes ahead of the reply (default 0)");
    addCount("--discovery-offset", reply.offset, "Dots ahead of the name (default 0)");
    addCount("--discovery-repeat", reply.repeats, "How often the reply is sent (default 1)");
    addCount("--discovery-garbage", reply.garbage,
        "Size of a datagram of garbage ahead of the replies (default 0, none)");

    for (CLI::Option* option : implying) {
        option->group(group)->each(
            [&options](const std::string&) { options.answersSearches = true; });
    }
}

} // namespace

UnitSettings SimOptions::settings(int index) const
{
    UnitSettings settings;
    settings.serialNumber += static_cast<quint64>(index);
    return changed(settings, index);
}

UnitSettings SimOptions::changed(UnitSettings settings, int index) const
{
    for (const SettingChange& change : settingChanges)
        change(settings, index);
    return settings;
}

quint16 SimOptions::portOf(int index) const
{
    return port == 0 ? quint16(0) : static_cast<quint16>(port + index);
}

QString SimOptions::memoryPathOf(int index) const
{
    if (!isSite())
        return memoryPath;
    return QDir(memoryPath).filePath(QStringLiteral("unit-%1.memory").arg(index + 1));
}

UnitFaults SimOptions::faultsOf(int index) const
{
    UnitFaults own(seedOf(index));
    const int unit = index + 1;
    QString error;
    for (const FaultOption& fault : faults) {
        if (fault.firstUnit <= unit && unit <= fault.lastUnit)
            own.add(fault.text, &error);
    }
    return own;
}

std::optional<SimOptions> parseOptions(int argc, char** argv, int* exitCode)
{
    SimOptions options;
    std::vector<std::string> faults;

    CLI::App app("A simulated control unit: the memory of a unit, served over TCP and UDP.");
    app.set_version_flag("--version", std::string("quadrelsim ") + QUADRELSIM_VERSION);
    addNetworkOptions(app, options);
    addUnitOptions(app, options);
    addUpgradeOptions(app, options);
    addFaultOptions(app, options, faults);
    addDiscoveryOptions(app, options);
    app.callback([&] { checkTogether(options, faults); });

    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        *exitCode = app.exit(error) == 0 ? 0 : usageExitCode;
        return std::nullopt;
    }
    return options;
}
