// SPDX-License-Identifier: GPL-3.0-or-later
#include "Script.h"

#include <algorithm>

namespace player {
namespace {

class SystemTest : public ScriptTest {
protected:
    using Values = std::vector<std::pair<std::string, std::string>>;

    void Supply(const std::string& name, const Values& values) {
        for (const auto& [file, value] : values)
            Put(around / "power" / name / file, value + "\n");
    }

    // Online, charging, status, percent, minutes, temperature, volts, battery, low.
    void Expect(const std::string& figures) {
        EXPECT_EQ(Run("local s = System\nlocal t = {s.powerIsPowerOnline(),"
                      "s.powerIsBatteryCharging(), s.powerGetBatteryChargingStatus(),"
                      "s.powerGetBatteryLifePercent(), s.powerGetBatteryLifeTime(),"
                      "s.powerGetBatteryTemp(), s.powerGetBatteryVolt(),"
                      "s.powerIsBatteryExist(), s.powerIsLowBattery()}\n"
                      "for i, v in ipairs(t) do t[i] = tostring(v) end\n"
                      "error(table.concat(t, ' '), 0)"),
                  figures);
    }
};

TEST_F(SystemTest, TellsHowTheMachineIsFed) {
    Expect("true false 0 100 0 0 0 false false");
    Supply(
        "mouse",
        {{"type", "Battery"}, {"scope", "Device"}, {"capacity", "3"}, {"status", "Discharging"}});
    Supply("AC", {{"type", "Mains"}, {"online", "0"}});
    Expect("true false 0 100 0 0 0 false false");
    Supply("BAT0", {{"type", "Battery"},
                    {"present", "1"},
                    {"status", "Discharging"},
                    {"capacity", "9"},
                    {"energy_now", "5000000"},
                    {"power_now", "10000000"},
                    {"temp", "315"},
                    {"voltage_now", "11750000"}});
    Expect("false false 0 9 30 31 11.75 true true");
    Supply("BAT1", {{"type", "Battery"}, {"status", "Full"}, {"capacity", "101"}});
    Expect("false false 2 54 30 31 11.75 true false");
    Supply("AC", {{"online", "1"}});
    Supply("BAT0", {{"status", "Charging"}, {"temp", "nada"}, {"voltage_now", "1e999"}});
    Expect("true true 1 54 0 0 0 true false");
}

TEST_F(SystemTest, SaysOnceWhatADesktopLacks) {
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(Run("for i = 1, 2 do System.irdaInit() System.irdaWrite('x') "
                  "assert(System.irdaRead() == '') System.usbDiskModeActivate() "
                  "System.usbDiskModeDeactivate() System.powerTick() end "
                  "assert(not pcall(System.irdaWrite))"),
              "");
    const std::string said = ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(std::count(said.begin(), said.end(), '\n'), 2) << said;
}

// Each side runs in one script, as two machines would in two.
TEST_F(SystemTest, SocketsTalkWithoutWaiting) {
    EXPECT_EQ(Run(R"(
        local function soon(what, ask)
            local stop = os.time() + 10
            local answer
            repeat answer = ask() until answer or os.time() > stop
            return assert(answer, what)
        end
        assert(Wlan.init() and #Wlan.getConnectionConfigs() > 0 and Wlan.useConnectionConfig(1))
        assert(Wlan.getIPAddress():find("^%d+%.%d+%.%d+%.%d+$"))
        local port, server = 45000
        repeat port = port + 1 server = Socket:createServerSocket(port) until server
        local none, why = Socket:createServerSocket(port)
        assert(not none and why == "puerto " .. port .. ": el puerto ya está en uso")
        assert(server:accept() == nil and not server:isConnected())
        local a = Socket.connect("localhost", port)
        local b = soon("accept", function() a:isConnected() return server:accept() end)
        soon("connect", function() return a:isConnected() end)
        assert(b:isConnected() == true and b:recv() == "" and a:send("hola\0\255") == 6)
        local text = ""
        soon("recv", function() text = text .. b:recv() return #text == 6 end)
        assert(text == "hola\0\255")

        -- Nobody reads: the way fills up, and then takes nothing more.
        local sent, big = 0, ("x"):rep(1000000)
        soon("full", function() local n = b:send(big) sent = sent + n return n == 0 end)
        b:close()
        assert(not b:isConnected() and not b:send("x"))
        local got = 0
        soon("rest", function() got = got + #a:recv() return got == sent end)
        local function said(socket, text)
            soon(text, function() return select(2, socket:isConnected()) == text end)
        end
        said(a, "el otro lado cerró la conexión")
        server:close()
        local nobody = Socket.connect("127.0.0.1", port)
        said(nobody, "nadie atiende en ese puerto")
        nobody = Socket.connect("255.255.255.255", 9)
        assert(select(2, nobody:isConnected()) ~= "error de red 0")
        assert(not nobody:isConnected() and not pcall(nobody.send, nobody, {}))

        for _, bad in ipairs{{"", 80}, {"x", 0}, {"x", 65536}, {"x", 0/0}, {"x\0y", 80}, {}} do
            assert(not pcall(Socket.connect, bad[1], bad[2]))
        end
        assert(not pcall(server.recv, io.stdout) and not pcall(Wlan.useConnectionConfig, 0))
        local last repeat last = Socket:createServerSocket(port) port = port + 1 until last
        Wlan.term()
        assert(last:accept() == nil and not last:isConnected()))"),
              "");
}

} // namespace
} // namespace player
