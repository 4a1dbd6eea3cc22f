// A driver's settings table: typed values by id, kept as text, loaded from
// and saved to one registry key.
#pragma once

#include <map>
#include <string>

#include "qor/settings/Registry.h"

// One row of a settings table: the registry value's name, the type code of
// the value (1 bool, 2 char, 3 unsigned char, 4 short, 5 unsigned short,
// 6 long, 7 unsigned long, 8 double, 9 string), and its default as text.
struct RegistryEntryInfo {
    RegistryEntryInfo(std::string name, int type, std::string defaultValue)
        : name(std::move(name)), type(type), defaultValue(std::move(defaultValue)) {}
    std::string name;
    int type;
    std::string defaultValue;
};

// The table a driver declares, by id.
using RegistryMapInfo = std::map<int, RegistryEntryInfo>;

// The current values of a settings table, each kept as text and stored in
// the registry as a string whatever its type.
//
// GetValue and SetValue return 0 for success, 1 for an id the table lacks,
// 2 for a type other than the id's declared one, and (reading only) 3 for an
// id without a current value; on any failure the argument or the stored
// value stays as it was. Texts are written in the "C" formats: "1"/"0" for
// bool, "%d" up to unsigned short, "%ld" of a 32-bit long (so an unsigned
// long above 0x7FFFFFFF is written negative), "%f" for double.
//
// The map does not own its table, which must outlive it. No locks of its own.
class RegistryMap {
public:
    explicit RegistryMap(const RegistryMapInfo &info) : info(info) {}
    RegistryMap(const RegistryMap &other) = default;

    void Clear() { values.clear(); }
    // Every id gets its default.
    void LoadDefaultValues();
    // Every id gets the string value of its name under keyPath, or its
    // default when that is absent or not a string.
    void LoadValues(CRegistry &registry, const std::string &keyPath);
    // Writes each id that has a current value, as a string; failures pass
    // unnoticed.
    void SaveValues(CRegistry &registry, const std::string &keyPath) const;

    int GetValue(int id, bool &value) const;
    int GetValue(int id, char &value) const;
    int GetValue(int id, unsigned char &value) const;
    int GetValue(int id, short &value) const;
    int GetValue(int id, unsigned short &value) const;
    int GetValue(int id, long &value) const;
    int GetValue(int id, unsigned long &value) const;
    int GetValue(int id, double &value) const;
    int GetValue(int id, std::string &value) const;

    int SetValue(int id, bool value);
    int SetValue(int id, char value);
    int SetValue(int id, unsigned char value);
    int SetValue(int id, short value);
    int SetValue(int id, unsigned short value);
    int SetValue(int id, long value);
    int SetValue(int id, unsigned long value);
    int SetValue(int id, double value);
    int SetValue(int id, const std::string &value);

protected:
    int CheckValueType(int id, int type) const;
    int GetValueHelper(int id, int type, std::string &text) const;
    int SetValueHelper(int id, int type, const std::string &text);

private:
    const RegistryMapInfo &info;
    std::map<int, std::string> values;
};
