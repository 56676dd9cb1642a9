// Port input and output: the host answers for the first IDE controller from
// its settings, so that a module reading the drive's identity gets the
// configured serial without any hardware access.
//
// The controller: status port 0x1F7 reads 0x00 (no drive) while no serial is
// set, else 0x50 (ready, seek complete), and 0x58 (data request) while the
// identify block (command 0xEC) is being read; data port 0x1F0 gives its 256
// words, the serial in words 10 to 19, right-justified in blanks, each word
// holding two characters high byte first.
#include <array>
#include <cstdint>

#include "host/win32/machine.h"
#include "platform/conio.h"

namespace {

enum : unsigned short { kData = 0x1F0, kDrive = 0x1F6, kStatus = 0x1F7 };
enum : int { kReady = 0x50, kDataRequest = 0x08, kIdentify = 0xEC };

struct Controller {
    std::array<uint16_t, 256> block{};
    int next = 256;   // index of the next word; 256: nothing to read
};

Controller& Ide() {
    static Controller ide;
    return ide;
}

bool HasDrive() { return !lumo::win32::Machine().ideSerial.empty(); }

void LoadIdentify(Controller& c) {
    c.block.fill(0);
    std::string serial = lumo::win32::Machine().ideSerial.substr(0, 20);
    serial.insert(0, 20 - serial.size(), ' ');
    for (int i = 0; i < 10; ++i)
        c.block[10 + i] = static_cast<uint16_t>((static_cast<unsigned char>(serial[2 * i]) << 8) |
                                                static_cast<unsigned char>(serial[2 * i + 1]));
    c.next = 0;
}

}  // namespace

int _inp(unsigned short port) {
    if (port == kStatus) {
        if (!HasDrive()) return 0x00;
        return Ide().next < 256 ? kReady | kDataRequest : kReady;
    }
    if (port >= kData && port < kStatus) return 0x00;
    return 0xFF;
}

unsigned short _inpw(unsigned short port) {
    Controller& c = Ide();
    if (port != kData || c.next >= 256) return 0xFFFF;
    return c.block[static_cast<size_t>(c.next++)];
}

int _outp(unsigned short port, int databyte) {
    if (port == kStatus && (databyte & 0xFF) == kIdentify && HasDrive()) LoadIdentify(Ide());
    return databyte & 0xFF;
}

unsigned short _outpw(unsigned short, unsigned short dataword) { return dataword; }
