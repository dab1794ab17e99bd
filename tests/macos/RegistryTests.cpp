#include "platform/simulated/ManualScheduler.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "tests/macos/MacFixture.h"

#include <chrono>
#include <limits>

namespace tessivo {
namespace {

using testing::ElementsAre;
using testing::Field;

using MacRegistryTest = Mac;
using MacFactsTest = Mac;

constexpr const char* usb = "IOUSBHostDevice";

TEST_F(MacRegistryTest, givesEveryKindOfValueItsPlainForm) {
    addService(usb, "AppleUSBHostDevice",
               PropertyMap{{"flag", true},
                           {"off", false},
                           {"whole", std::int64_t(-3)},
                           {"real", 0.5},
                           {"text", "M\xC3\xBC\xF0\x9F\x94\x8A"},
                           {"list", PropertyList{1, "a", Property()}},
                           {"map", PropertyMap{{"in", 7}}},
                           {"date", Property()}});
    const auto entries = MacRegistry().matchingServices(usb);
    ASSERT_TRUE(entries && entries->size() == 1);
    EXPECT_EQ(entries->front().className, "AppleUSBHostDevice");
    EXPECT_EQ(entries->front().properties, (PropertyMap{{"flag", true},
                                                        {"off", false},
                                                        {"whole", std::int64_t(-3)},
                                                        {"real", 0.5},
                                                        {"text", "M\xC3\xBC\xF0\x9F\x94\x8A"},
                                                        {"list", PropertyList{1, "a"}},
                                                        {"map", PropertyMap{{"in", 7}}}}));
    EXPECT_EQ(entries->front().parent(), nullptr);
}

TEST_F(MacRegistryTest, takesOddObjectsAsTheyCome) {
    StandIn::Service& service = addService(usb, usb, PropertyMap{});
    auto& elements = service.properties->elements;
    const auto add = [&](StandIn::Object* key, StandIn::Object* value) {
        elements.insert(elements.end(), {key, value});
    };
    auto* broken = system.keep("");
    broken->text = {u'a', char16_t(0xd83d), u'b', char16_t(0xdc00)};
    auto* wide = system.keep(std::int64_t(-1)); // 2 to the 64th less 1, as 64 bits hold it
    wide->isWide = true;
    add(system.keep("broken"), broken);
    add(system.keep("wide"), wide);
    add(system.keep(5), system.keep("a key that is no text"));
    add(system.keep("long"), system.keep(std::string(3'000'000, 'x')));
    auto* deep = system.keep(PropertyList{});
    for (int level = 0; level < 10'000; ++level) {
        auto* outer = system.keep(PropertyList{});
        outer->elements = {deep};
        deep = outer;
    }
    add(system.keep("deep"), deep);

    const auto entries = MacRegistry().matchingServices(usb);
    ASSERT_TRUE(entries && entries->size() == 1 && entries->front().properties);
    const PropertyMap& map = *entries->front().properties;
    EXPECT_EQ(text(map, "broken"), "a?b?");
    EXPECT_EQ(integer(map, "wide"), -1);
    EXPECT_EQ(text(map, "long").value_or("").size(), 3'000'000u);
    EXPECT_EQ(map.size(), 4u);
}

/// What every reading asks for, with nothing in it as it should be.
TEST_F(MacRegistryTest, aForeignClassUnderAKnownNameIsReadAsWhatItIs) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    const Property odd[] = {nan,
                            infinite,
                            -1e300,
                            std::numeric_limits<std::int64_t>::min(),
                            -1,
                            "text",
                            true,
                            PropertyList{1},
                            PropertyMap{{"a", nan}},
                            Property()};
    const char* const keys[] = {"idVendor",       "idProduct",    "locationID",    "USB Product Name",
                                "BSD Name",       "IOLinkStatus", "CycleCount",    "MaxCapacity",
                                "DesignCapacity", "BatteryData",  "serial-number", "IOPlatformSerialNumber",
                                "model",          "Temperature",  "Voltage"};
    for (const Property& value : odd) {
        system.reset();
        PropertyMap properties;
        for (const char* key : keys)
            properties[key] = value;
        for (const char* name : {usb, "IONetworkInterface", "AppleSmartBattery", "IOPlatformExpertDevice"})
            addService(name, "AppleARMIODevice", properties);
        EXPECT_EQ(MacRegistry().matchingServices(usb)->front().className, "AppleARMIODevice");
        readUSBDevices(MacRegistry());
        readWiredInterfaces(MacRegistry());
        readBattery(MacRegistry(), MacPowerSources());
        readMachineInfo(MacMachineFacts(), MacRegistry());
        EXPECT_EQ(system.held(), "");
    }
}

TEST_F(MacRegistryTest, tellsNothingFoundFromAFailedSearch) {
    EXPECT_TRUE(MacRegistry().matchingServices(usb)->empty()); // success without an iterator
    system.services[usb];
    EXPECT_TRUE(MacRegistry().matchingServices(usb)->empty());
    system.failCall(system.calls() + 1);
    EXPECT_EQ(MacRegistry().matchingServices(usb), std::nullopt);
}

TEST_F(MacRegistryTest, readsOnWhereADeviceGoes) {
    addService(usb, usb, PropertyMap{{"idVendor", 1}}).gone = true;
    addService(usb, usb, PropertyMap{{"idVendor", 2}});
    addService(usb, usb, "no dictionary");
    EXPECT_THAT(MacRegistry().matchingServices(usb).value(),
                ElementsAre(Field(&RegistryEntry::properties, std::nullopt),
                            Field(&RegistryEntry::properties, PropertyMap{{"idVendor", 2}}),
                            Field(&RegistryEntry::properties, std::nullopt)));
}

/// A list cut short would make devices that were there all along look new, and tick a port.
TEST_F(MacRegistryTest, beginsAnewWhenTheListChanges) {
    for (int vendor = 0; vendor < 5; ++vendor)
        addService(usb, usb, PropertyMap{{"idVendor", vendor}});
    int changes = 0;
    const auto changeAtMost = [&](int most) {
        changes = 0;
        system.beforeCall = [&, most](int, const std::string& call) {
            if (call == "IOObjectCopyClass" && changes < most && ++changes) system.servicesChanged();
        };
    };
    changeAtMost(2);
    EXPECT_EQ(MacRegistry().matchingServices(usb)->size(), 5u);
    changeAtMost(1000); // never still: what could be seen, and an end
    EXPECT_EQ(MacRegistry().matchingServices(usb)->size(), 1u);
    EXPECT_EQ(changes, 3);
}

TEST_F(MacRegistryTest, readsAParentWhenItIsAskedFor) {
    auto& port = addService("IONetworkInterface", "IOEthernetInterface", PropertyMap{{"BSD Name", "en0"}});
    port.parent = std::make_shared<StandIn::Service>();
    port.parent->className = "BCM5701Enet";
    port.parent->properties = system.keep(PropertyMap{{"IOLinkStatus", 1}});
    auto entries = MacRegistry().matchingServices("IONetworkInterface");
    ASSERT_EQ(entries->size(), 1u);
    port.parent->properties = system.keep(PropertyMap{{"IOLinkStatus", 3}});
    const int calls = system.calls();
    const auto parent = entries->front().parent();
    ASSERT_NE(parent, nullptr);
    EXPECT_EQ(parent->className, "BCM5701Enet");
    EXPECT_EQ(parent->properties, (PropertyMap{{"IOLinkStatus", 3}}));
    EXPECT_EQ(system.calls() - calls, 3); // the parent's handle, class and properties; nothing further up
    port.gone = true;
    EXPECT_EQ(entries->front().parent(), nullptr);
}

/// A scan asks for class and properties once each and for no parent: pages scan once a second.
TEST_F(MacRegistryTest, aScanOfManyDevicesAsksForNothingTwice) {
    constexpr int devices = 200, interfaces = 50, scans = 10;
    std::map<std::string, std::vector<RegistryEntry>> machine;
    for (int i = 0; i < devices; ++i) {
        const PropertyMap map{{"idVendor", 1452},
                              {"idProduct", i},
                              {"locationID", i << 20},
                              {"Device Speed", 3},
                              {"USB Product Name", "Device " + std::to_string(i)},
                              {"sessionID", i},
                              {"USB Vendor Name", "Maker"}};
        addService(usb, usb, map);
        machine[usb].push_back({usb, map, nullptr});
    }
    for (int i = 0; i < interfaces; ++i) {
        const PropertyMap map{{"BSD Name", "en" + std::to_string(i)}, {"IOBuiltin", true}};
        const PropertyMap above{{"IOLinkStatus", 3}, {"IOLinkSpeed", 1'000'000'000}};
        auto& service = addService("IONetworkInterface", "IOEthernetInterface", map);
        service.parent = std::make_shared<StandIn::Service>();
        service.parent->className = "Controller";
        service.parent->properties = system.keep(above);
        RegistryEntry entry{"IOEthernetInterface", map, nullptr};
        entry.setParent({"Controller", above, nullptr});
        machine["IONetworkInterface"].push_back(entry);
    }
    const int before = system.calls();
    EXPECT_EQ(MacRegistry().matchingServices(usb)->size(), devices);
    EXPECT_LE(system.calls() - before, 3 * devices + 5);

    ManualScheduler clock;
    MachineFile file;
    file.registry = machine;
    SimulatedPlatform simulated(file, clock);
    const auto time = [&](const Registry& registry) {
        const auto start = std::chrono::steady_clock::now();
        for (int scan = 0; scan < scans; ++scan) {
            EXPECT_EQ(readUSBDevices(registry).size(), std::size_t(devices));
            EXPECT_EQ(readWiredInterfaces(registry).size(), std::size_t(interfaces));
        }
        const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
        return int(taken.count() / scans);
    };
    std::printf("one scan of %d devices and %d interfaces: stand-in %d us, simulation %d us\n", devices,
                interfaces, time(MacRegistry()), time(simulated.registry()));
}

TEST_F(MacRegistryTest, listsPowerSourcesAsTheyAre) {
    EXPECT_EQ(MacPowerSources().descriptions(), std::nullopt);
    system.powerSources.emplace();
    EXPECT_EQ(MacPowerSources().descriptions(), PropertyList());
    for (const Property& source : {Property(PropertyMap{{"Type", "UPS"}}), Property("InternalBattery"),
                                   Property(PropertyMap{{"Type", "InternalBattery"}})})
        system.powerSources->push_back(system.keep(source));
    EXPECT_EQ(MacPowerSources().descriptions(),
              (PropertyList{PropertyMap{{"Type", "UPS"}}, PropertyMap{{"Type", "InternalBattery"}}}));
}

TEST_F(MacFactsTest, aValueMayGrowBetweenItsSizeAndItsBytes) {
    system.sysctl["hw.model"] = std::string("Mac14,2\0", 8);
    system.beforeCall = [&](int number, const std::string&) {
        if (number == 1) system.sysctl["hw.model"] = std::string("MacBookPro18,3\0", 15);
    };
    EXPECT_EQ(MacMachineFacts().sysctlbyname("hw.model"), std::string("MacBookPro18,3\0", 15));
    system.beforeCall = [&](int, const std::string&) { system.sysctl["hw.model"] += "x"; };
    EXPECT_EQ(MacMachineFacts().sysctlbyname("hw.model"), std::nullopt);
    EXPECT_EQ(MacMachineFacts().sysctlbyname("hw.other"), std::nullopt);
}

TEST_F(MacFactsTest, theVersionIsTwoOrThreeNumbersOrUnknown) {
    const auto version = [&](const std::string& text) {
        system.sysctl["kern.osproductversion"] = text + '\0';
        return readMachineInfo(MacMachineFacts(), MacRegistry()).osVersion;
    };
    EXPECT_EQ(version("15.3.1"), "macOS 15.3.1");
    EXPECT_EQ(version("26.0"), "macOS 26.0");
    for (const char* odd : {"", "26", "15.", "15.3.1.2", "15.x", "-1.0", "99999999999999999999.0"})
        EXPECT_EQ(version(odd), "macOS") << odd;
}

TEST_F(MacFactsTest, whatCannotBeReadIsAbsent) {
    EXPECT_EQ(MacMachineFacts().startupVolumeTotalCapacity(), std::nullopt);
    EXPECT_EQ(MacMachineFacts().physicalMemory(), 0u);
    system.capacity = system.keep("much");
    EXPECT_EQ(MacMachineFacts().startupVolumeTotalCapacity(), std::nullopt);
    system.capacity = system.keep(std::int64_t(494384795648));
    system.sysctl["hw.memsize"] = "1234";
    EXPECT_EQ(MacMachineFacts().startupVolumeTotalCapacity(), 494384795648);
    EXPECT_EQ(MacMachineFacts().physicalMemory(), 0u);
}

} // namespace
} // namespace tessivo
