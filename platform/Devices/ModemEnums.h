#pragma once
// States a modem reports. The numbers are those of the desktop's modem
// service on D-Bus, so that a backend built on it passes them through
// unchanged; keep them as they are.

namespace Devices {

// Overall state of a modem, from failure to a live data connection.
enum DeviceState : int {
    DeviceStateFailed = -1,       // unusable (SIM missing or broken, ...)
    DeviceStateUnknown = 0,
    DeviceStateInitializing = 1,
    DeviceStateLocked = 2,        // waiting for a SIM code
    DeviceStateDisabled = 3,      // radio side switched off
    DeviceStateDisabling = 4,
    DeviceStateEnabling = 5,
    DeviceStateEnabled = 6,       // usable, not registered
    DeviceStateSearching = 7,     // looking for a network
    DeviceStateRegistered = 8,
    DeviceStateDisconnecting = 9,
    DeviceStateConnecting = 10,
    DeviceStateConnected = 11,
};

// The code the SIM (or the device) waits for.
enum LockKind : int {
    LockUnknown = 0,
    LockNone = 1,
    LockSimPin = 2,
    LockSimPin2 = 3,
    LockSimPuk = 4,
    LockSimPuk2 = 5,
    LockPhoneSpPin = 6,
    LockPhoneSpPuk = 7,
    LockPhoneNetPin = 8,
    LockPhoneNetPuk = 9,
    LockPhoneSimPin = 10,
    LockPhoneCorpPin = 11,
    LockPhoneCorpPuk = 12,
    LockPhoneFsimPin = 13,
    LockPhoneFsimPuk = 14,
    LockPhoneNetsubPin = 15,
    LockPhoneNetsubPuk = 16,
};

// Radio power; Low is flight mode.
enum PowerState : int {
    PowerUnknown = 0,
    PowerOff = 1,
    PowerLow = 2,
    PowerOn = 3,
};

// Radio access technologies, as bits: a modem may report several at once.
enum AccessTechnology : unsigned int {
    AccessUnknown = 0,
    AccessPots = 1u << 0,
    AccessGsm = 1u << 1,
    AccessGsmCompact = 1u << 2,
    AccessGprs = 1u << 3,
    AccessEdge = 1u << 4,
    AccessUmts = 1u << 5,
    AccessHsdpa = 1u << 6,
    AccessHsupa = 1u << 7,
    AccessHspa = 1u << 8,
    AccessHspaPlus = 1u << 9,
    Access1xRtt = 1u << 10,
    AccessEvdo0 = 1u << 11,
    AccessEvdoA = 1u << 12,
    AccessEvdoB = 1u << 13,
    AccessLte = 1u << 14,
    Access5gNr = 1u << 15,
    AccessLteCatM = 1u << 16,
    AccessLteNbIot = 1u << 17,
    AccessAny = 0xFFFFFFFFu,
};

// Where the modem stands with the mobile network.
enum RegistrationState : int {
    RegistrationIdle = 0,
    RegistrationHome = 1,
    RegistrationSearching = 2,
    RegistrationDenied = 3,
    RegistrationUnknown = 4,
    RegistrationRoaming = 5,
    RegistrationHomeSmsOnly = 6,
    RegistrationRoamingSmsOnly = 7,
    RegistrationEmergencyOnly = 8,
    RegistrationHomeCsfbNotPreferred = 9,
    RegistrationRoamingCsfbNotPreferred = 10,
    RegistrationAttachedRlos = 11,
};

// True for the registration states that mean a foreign network.
inline bool IsRoaming(RegistrationState s)
{
    return s == RegistrationRoaming || s == RegistrationRoamingSmsOnly || s == RegistrationRoamingCsfbNotPreferred;
}

} // namespace Devices
