// SPDX-FileCopyrightText: the quadrelbll authors
// SPDX-License-Identifier: MIT

#include <QtCore/QMap>
#include <QtCore/QRandomGenerator>
#include <QtTest/QtTest>

#include <array>
#include <memory>
#include <set>
#include <utility>
#include <vector>

#include "devicemanagermodel.h"

namespace {

/**
 * What the registry's map is expected to do, written apart from the framework's map: a red-black
 * tree whose search goes right at every key that differs and left at a key that is equal. Nodes are
 * known by their index, 0 is the sentinel.
 */
class EdgeTree {
public:
    void store(int key, ModelManagement* value)
    {
        int parent = 0;
        int hit = 0;
        for (int node = m_root; node != 0; node = next(node, key)) {
            parent = node;
            if (m_nodes[node].key == key)
                hit = node;
        }
        if (hit != 0)
            m_nodes[hit].value = value;
        else
            attach(parent, key, value);
    }

    /** The stored value, or nothing when the search misses. */
    ModelManagement* lookup(int key) const
    {
        const int hit = find(key);
        return hit != 0 ? m_nodes[hit].value : nullptr;
    }

    void remove(int key)
    {
        const int node = find(key);
        if (node != 0)
            detach(node);
    }

    QVector<QPair<int, ModelManagement*>> entries() const
    {
        QVector<QPair<int, ModelManagement*>> result;
        collect(m_root, result);
        return result;
    }

private:
    enum Side { Left, Right };

    struct Node {
        int key = 0;
        ModelManagement* value = nullptr;
        bool red = false;
        int parent = 0;
        std::array<int, 2> child{0, 0};
    };

    int next(int node, int key) const
    {
        return m_nodes[node].child[m_nodes[node].key == key ? Left : Right];
    }

    int find(int key) const
    {
        int hit = 0;
        for (int node = m_root; node != 0; node = next(node, key)) {
            if (m_nodes[node].key == key)
                hit = node;
        }
        return hit;
    }

    void collect(int node, QVector<QPair<int, ModelManagement*>>& result) const
    {
        if (node == 0)
            return;
        collect(m_nodes[node].child[Left], result);
        result.append({m_nodes[node].key, m_nodes[node].value});
        collect(m_nodes[node].child[Right], result);
    }

    Side sideOf(int node) const
    {
        return m_nodes[m_nodes[node].parent].child[Left] == node ? Left : Right;
    }

    static Side opposite(Side side) { return side == Left ? Right : Left; }

    /** Puts `heir`, which may be the sentinel, in the place of `node` below the parent of `node`.
     */
    void supplant(int node, int heir)
    {
        const int parent = m_nodes[node].parent;
        if (parent == 0)
            m_root = heir;
        else
            m_nodes[parent].child[sideOf(node)] = heir;
        m_nodes[heir].parent = parent;
    }

    /** Moves `node` down to `side`; its child of the other side takes its place. */
    void rotate(int node, Side side)
    {
        const Side other = opposite(side);
        const int riser = m_nodes[node].child[other];
        const int moved = m_nodes[riser].child[side];
        m_nodes[node].child[other] = moved;
        if (moved != 0)
            m_nodes[moved].parent = node;
        supplant(node, riser);
        m_nodes[riser].child[side] = node;
        m_nodes[node].parent = riser;
    }

    /** A missed search has gone right at every node. */
    void attach(int parent, int key, ModelManagement* value)
    {
        const int node = int(m_nodes.size());
        Node fresh;
        fresh.key = key;
        fresh.value = value;
        fresh.red = true;
        fresh.parent = parent;
        m_nodes.push_back(fresh);
        if (parent == 0)
            m_root = node;
        else
            m_nodes[parent].child[Right] = node;
        balanceAfterAttach(node);
    }

    void balanceAfterAttach(int node)
    {
        while (m_nodes[m_nodes[node].parent].red) {
            int parent = m_nodes[node].parent;
            const int grandparent = m_nodes[parent].parent;
            const Side side = sideOf(parent);
            const int uncle = m_nodes[grandparent].child[opposite(side)];
            if (m_nodes[uncle].red) {
                m_nodes[parent].red = false;
                m_nodes[uncle].red = false;
                m_nodes[grandparent].red = true;
                node = grandparent;
                continue;
            }
            if (sideOf(node) != side) {
                rotate(parent, side);
                std::swap(node, parent);
            }
            m_nodes[parent].red = false;
            m_nodes[grandparent].red = true;
            rotate(grandparent, opposite(side));
        }
        m_nodes[m_root].red = false;
    }

    void detach(int node)
    {
        const auto [left, right] = m_nodes[node].child;
        if (left == 0 || right == 0) {
            const int heir = left == 0 ? right : left;
            supplant(node, heir);
            balanceAfterDetach(heir, m_nodes[node].red);
            return;
        }
        int successor = right;
        while (m_nodes[successor].child[Left] != 0)
            successor = m_nodes[successor].child[Left];
        const int heir = m_nodes[successor].child[Right];
        const bool lostRed = m_nodes[successor].red;
        if (successor == right) {
            m_nodes[heir].parent = successor;
        } else {
            supplant(successor, heir);
            m_nodes[successor].child[Right] = right;
            m_nodes[right].parent = successor;
        }
        supplant(node, successor);
        m_nodes[successor].child[Left] = left;
        m_nodes[left].parent = successor;
        m_nodes[successor].red = m_nodes[node].red;
        balanceAfterDetach(heir, lostRed);
    }

    void balanceAfterDetach(int node, bool lostRed)
    {
        if (lostRed)
            return;
        while (node != m_root && !m_nodes[node].red) {
            const int parent = m_nodes[node].parent;
            const Side side = m_nodes[parent].child[Left] == node ? Left : Right;
            const Side other = opposite(side);
            int sibling = m_nodes[parent].child[other];
            if (m_nodes[sibling].red) {
                m_nodes[sibling].red = false;
                m_nodes[parent].red = true;
                rotate(parent, side);
                sibling = m_nodes[parent].child[other];
            }
            if (!m_nodes[m_nodes[sibling].child[Left]].red
                && !m_nodes[m_nodes[sibling].child[Right]].red) {
                m_nodes[sibling].red = true;
                node = parent;
                continue;
            }
            if (!m_nodes[m_nodes[sibling].child[other]].red) {
                m_nodes[m_nodes[sibling].child[side]].red = false;
                m_nodes[sibling].red = true;
                rotate(sibling, other);
                sibling = m_nodes[parent].child[other];
            }
            m_nodes[sibling].red = m_nodes[parent].red;
            m_nodes[parent].red = false;
            m_nodes[m_nodes[sibling].child[other]].red = false;
            rotate(parent, side);
            node = m_root;
        }
        m_nodes[node].red = false;
    }

    std::vector<Node> m_nodes{Node()};
    int m_root = 0;
};

/** A device that differs from the others by its serial number. */
DeviceModel device(int number)
{
    DeviceModel device;
    device.setSN(static_cast<unsigned long long>(number));
    return device;
}

/** A registry of its own, with aggregates that stay alive to the end of the test. */
class Registry {
public:
    ModelManagement* store(const DeviceModel& device)
    {
        m_aggregates.push_back(std::make_unique<ModelManagement>());
        ModelManagement* aggregate = m_aggregates.back().get();
        m_stored.insert(aggregate);
        m_registry.setDeviceData(device, aggregate);
        return aggregate;
    }

    /** The stored aggregate, or nothing when the registry made a new one. */
    ModelManagement* lookup(const DeviceModel& device)
    {
        ModelManagement* aggregate = m_registry.getDeviceData(device);
        if (m_stored.count(aggregate) != 0)
            return aggregate;
        delete aggregate;
        return nullptr;
    }

    void remove(const DeviceModel& device) { m_registry.deleteDeviceData(device); }

private:
    DeviceManagerModel m_registry;
    std::vector<std::unique_ptr<ModelManagement>> m_aggregates;
    std::set<ModelManagement*> m_stored;
};

} // namespace

class TestDeviceManagerModel : public QObject {
    Q_OBJECT

private slots:
    void recordIsRegistered();
    void instanceExists();
    void selectionIsACopy();
    void storedAggregateIsFound();
    void unknownDeviceGetsAFreshAggregate();
    void storingAgainOverwrites();
    void nullIsHandedOut();
    void everyFieldTellsDevicesApart_data();
    void everyFieldTellsDevicesApart();
    void twoDevicesAreFound();
    void oldestOfThreeIsLost();
    void lostDeviceGetsASecondEntry();
    void deletionErasesOneEntry();
    void deletionLeavesTheAggregate();
    void deletionOfUnknownDeviceIsIgnored();
    void lastStoredIsAlwaysFound();
    void behavesAsTheTree_data();
    void behavesAsTheTree();
};

void TestDeviceManagerModel::recordIsRegistered()
{
    // The one instance has registered it while the program was loaded.
    const int type = QMetaType::type("DeviceModel");
    QVERIFY(type != QMetaType::UnknownType);
    QCOMPARE(type, qMetaTypeId<DeviceModel>());
    const QVariant value = QVariant::fromValue(device(5));
    QVERIFY(value.value<DeviceModel>() == device(5));
}

void TestDeviceManagerModel::instanceExists()
{
    DeviceManagerModel* const instance = DeviceManagerModel::Instance();
    QVERIFY(instance);
    QVERIFY(!instance->parent());
    QCOMPARE(instance, DeviceManagerModel::m_pDeviceInstance);
    QCOMPARE(DeviceManagerModel::Instance(), instance);
}

void TestDeviceManagerModel::selectionIsACopy()
{
    QObject parent;
    DeviceManagerModel registry(&parent);
    QCOMPARE(registry.parent(), &parent);
    QVERIFY(registry.getCurrentSelectDevice() == DeviceModel());

    DeviceModel selected = device(5);
    registry.setCurrentSelectDevice(selected);
    selected.setSN(6);
    QVERIFY(registry.getCurrentSelectDevice() == device(5));
    registry.getCurrentSelectDevice().setSN(7);
    QVERIFY(registry.getCurrentSelectDevice() == device(5));

    // A selected device has no entry of its own accord.
    const std::unique_ptr<ModelManagement> one(registry.getDeviceData(device(5)));
    const std::unique_ptr<ModelManagement> other(registry.getDeviceData(device(5)));
    QVERIFY(one != other);
}

void TestDeviceManagerModel::storedAggregateIsFound()
{
    Registry registry;
    ModelManagement* const stored = registry.store(device(1));
    QCOMPARE(registry.lookup(device(1)), stored);
    QCOMPARE(registry.lookup(device(1)), stored);
}

void TestDeviceManagerModel::unknownDeviceGetsAFreshAggregate()
{
    DeviceManagerModel registry;
    ModelManagement stored;
    registry.setDeviceData(device(1), &stored);
    const std::unique_ptr<ModelManagement> first(registry.getDeviceData(device(2)));
    const std::unique_ptr<ModelManagement> second(registry.getDeviceData(device(2)));
    QVERIFY(first);
    QVERIFY(second);
    QVERIFY(first != second);
    QVERIFY(first.get() != &stored);
    QVERIFY(!first->parent());
    QVERIFY(*first->getDeviceModel() == DeviceModel());
    QCOMPARE(first->getEventModel()->size(), 0);
}

void TestDeviceManagerModel::storingAgainOverwrites()
{
    DeviceManagerModel registry;
    const QPointer<ModelManagement> first = new ModelManagement;
    const std::unique_ptr<ModelManagement> firstOwner(first.data());
    ModelManagement second;
    registry.setDeviceData(device(1), first);
    registry.setDeviceData(device(1), &second);
    QCOMPARE(registry.getDeviceData(device(1)), &second);
    QVERIFY(first);
}

void TestDeviceManagerModel::nullIsHandedOut()
{
    DeviceManagerModel registry;
    registry.setDeviceData(device(1), nullptr);
    QVERIFY(!registry.getDeviceData(device(1)));
}

void TestDeviceManagerModel::everyFieldTellsDevicesApart_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::newRow("ModelID") << QVariant(1);
    QTest::newRow("version") << QVariant(QStringLiteral("1.0.0.1"));
    QTest::newRow("DHCP") << QVariant(true);
    QTest::newRow("ip") << QVariant(QStringLiteral("192.168.1.11"));
    QTest::newRow("submask") << QVariant(QStringLiteral("255.255.255.0"));
    QTest::newRow("gateway") << QVariant(QStringLiteral("192.168.1.1"));
    QTest::newRow("ethlinkstate") << QVariant(true);
    QTest::newRow("comnum") << QVariant(1);
    QTest::newRow("ionum") << QVariant(1);
    QTest::newRow("relaynum") << QVariant(1);
    QTest::newRow("irnum") << QVariant(1);
    QTest::newRow("name") << QVariant(QStringLiteral("name"));
    QTest::newRow("type") << QVariant(QStringLiteral("type"));
    QTest::newRow("pattern") << QVariant(QStringLiteral("pattern"));
}

void TestDeviceManagerModel::everyFieldTellsDevicesApart()
{
    QFETCH(QVariant, value);
    Registry registry;
    DeviceModel changed = device(1);
    QVERIFY(changed.setProperty(QTest::currentDataTag(), value));
    ModelManagement* const stored = registry.store(device(1));
    QVERIFY(!registry.lookup(changed));
    ModelManagement* const other = registry.store(changed);
    QCOMPARE(registry.lookup(changed), other);
    QCOMPARE(registry.lookup(device(1)), stored);
}

void TestDeviceManagerModel::twoDevicesAreFound()
{
    Registry registry;
    ModelManagement* const a = registry.store(device(1));
    ModelManagement* const b = registry.store(device(2));
    QCOMPARE(registry.lookup(device(1)), a);
    QCOMPARE(registry.lookup(device(2)), b);
    registry.remove(device(1));
    QVERIFY(!registry.lookup(device(1)));
    QCOMPARE(registry.lookup(device(2)), b);
}

void TestDeviceManagerModel::oldestOfThreeIsLost()
{
    Registry registry;
    registry.store(device(1));
    ModelManagement* const b = registry.store(device(2));
    ModelManagement* const c = registry.store(device(3));
    QVERIFY(!registry.lookup(device(1)));
    QCOMPARE(registry.lookup(device(2)), b);
    QCOMPARE(registry.lookup(device(3)), c);

    registry.remove(device(1));
    QVERIFY(!registry.lookup(device(1)));
    QCOMPARE(registry.lookup(device(2)), b);
    QCOMPARE(registry.lookup(device(3)), c);
}

void TestDeviceManagerModel::lostDeviceGetsASecondEntry()
{
    Registry registry;
    ModelManagement* const lost = registry.store(device(1));
    registry.store(device(2));
    registry.store(device(3));
    ModelManagement* const again = registry.store(device(1));
    QCOMPARE(registry.lookup(device(1)), again);

    // With the others gone, the older entry of the same device shows again.
    registry.remove(device(1));
    registry.remove(device(3));
    registry.remove(device(2));
    QCOMPARE(registry.lookup(device(1)), lost);
}

void TestDeviceManagerModel::deletionErasesOneEntry()
{
    Registry registry;
    EdgeTree tree;
    for (const int number : {1, 2, 3, 1})
        tree.store(number, registry.store(device(number)));
    for (const int number : {3, 2}) {
        registry.remove(device(number));
        tree.remove(number);
    }
    QCOMPARE(tree.entries().size(), 2);
    QCOMPARE(tree.entries().first().first, tree.entries().last().first);

    // Both entries left are of device 1; each deletion takes one.
    QVERIFY(registry.lookup(device(1)));
    registry.remove(device(1));
    QVERIFY(registry.lookup(device(1)));
    registry.remove(device(1));
    QVERIFY(!registry.lookup(device(1)));
}

void TestDeviceManagerModel::deletionLeavesTheAggregate()
{
    DeviceManagerModel registry;
    const QPointer<ModelManagement> aggregate = new ModelManagement;
    const std::unique_ptr<ModelManagement> owner(aggregate.data());
    registry.setDeviceData(device(1), aggregate);
    registry.deleteDeviceData(device(1));
    QVERIFY(aggregate);
}

void TestDeviceManagerModel::deletionOfUnknownDeviceIsIgnored()
{
    Registry registry;
    registry.remove(device(1));
    ModelManagement* const stored = registry.store(device(1));
    registry.remove(device(2));
    QCOMPARE(registry.lookup(device(1)), stored);
    registry.remove(device(1));
    registry.remove(device(1));
    QVERIFY(!registry.lookup(device(1)));
}

void TestDeviceManagerModel::lastStoredIsAlwaysFound()
{
    Registry registry;
    for (int number = 0; number < 200; ++number) {
        ModelManagement* const stored = registry.store(device(number));
        QCOMPARE(registry.lookup(device(number)), stored);
    }
}

void TestDeviceManagerModel::behavesAsTheTree_data()
{
    QTest::addColumn<uint>("seed");
    QTest::addColumn<int>("devices");
    QTest::addColumn<int>("storesInTen");
    for (uint seed = 1; seed <= 6; ++seed) {
        QTest::addRow("few devices, seed %u", seed) << seed << 4 << 5;
        QTest::addRow("many devices, seed %u", seed) << seed << 16 << 6;
        QTest::addRow("mostly deletions, seed %u", seed) << seed << 16 << 3;
    }
}

// A framework's map in the test shows, entry for entry, what the registry keeps to itself: how many
// entries there are and in which order.
void TestDeviceManagerModel::behavesAsTheTree()
{
    QFETCH(uint, seed);
    QFETCH(int, devices);
    QFETCH(int, storesInTen);
    QRandomGenerator random(seed);
    Registry registry;
    EdgeTree tree;
    QMap<DeviceModel, ModelManagement*> map;

    for (int step = 0; step < 400; ++step) {
        const int number = random.bounded(devices);
        if (random.bounded(10) < storesInTen) {
            ModelManagement* const aggregate = registry.store(device(number));
            tree.store(number, aggregate);
            map.insert(device(number), aggregate);
        } else {
            registry.remove(device(number));
            tree.remove(number);
            const auto entry = map.find(device(number));
            if (entry != map.end())
                map.erase(entry);
        }

        for (int known = 0; known < devices; ++known)
            QCOMPARE(registry.lookup(device(known)), tree.lookup(known));

        const auto entries = tree.entries();
        QCOMPARE(map.size(), entries.size());
        int index = 0;
        for (auto entry = map.constBegin(); entry != map.constEnd(); ++entry, ++index) {
            QVERIFY(entry.key() == device(entries.at(index).first));
            QCOMPARE(entry.value(), entries.at(index).second);
        }
    }
}

QTEST_APPLESS_MAIN(TestDeviceManagerModel)
#include "tst_devicemanagermodel.moc"
