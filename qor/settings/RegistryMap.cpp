#include "qor/settings/RegistryMap.h"

#include <cstdarg>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

// The type codes of a settings table.
enum RegistryMapType {
    kMapBool = 1,
    kMapChar = 2,
    kMapUnsignedChar = 3,
    kMapShort = 4,
    kMapUnsignedShort = 5,
    kMapLong = 6,
    kMapUnsignedLong = 7,
    kMapDouble = 8,
    kMapString = 9,
};

// atoi as the 32-bit runtime has it: leading blanks, a sign, digits, and
// INT_MAX or INT_MIN for what does not fit.
std::int32_t MapAtoi(const std::string &text) {
    const long long value = std::strtoll(text.c_str(), nullptr, 10);
    if (value > INT32_MAX) return INT32_MAX;
    if (value < INT32_MIN) return INT32_MIN;
    return static_cast<std::int32_t>(value);
}

std::string MapFormat(const char *format, ...) __attribute__((format(printf, 1, 2)));

std::string MapFormat(const char *format, ...) {
    va_list arguments;
    va_start(arguments, format);
    va_list again;
    va_copy(again, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, arguments);
    va_end(arguments);
    std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    std::vsnprintf(text.data(), text.size() + 1, format, again);
    va_end(again);
    return text;
}

// The 32-bit original's "%d" and "%ld" both print a 32-bit int.
std::string MapNumberText(std::int32_t value) { return MapFormat("%d", value); }

}  // namespace

void RegistryMap::LoadDefaultValues() {
    values.clear();
    for (const auto &[id, entry] : info) values[id] = entry.defaultValue;
}

void RegistryMap::LoadValues(CRegistry &registry, const std::string &keyPath) {
    values.clear();
    for (const auto &[id, entry] : info) {
        std::string text;
        values[id] = registry.LoadKey(keyPath.c_str(), entry.name.c_str(), text) ? text : entry.defaultValue;
    }
}

void RegistryMap::SaveValues(CRegistry &registry, const std::string &keyPath) const {
    for (const auto &[id, entry] : info) {
        auto current = values.find(id);
        if (current != values.end())
            registry.SaveKey(keyPath.c_str(), entry.name.c_str(), current->second.c_str());
    }
}

int RegistryMap::CheckValueType(int id, int type) const {
    auto entry = info.find(id);
    if (entry == info.end()) return 1;
    return entry->second.type == type ? 0 : 2;
}

int RegistryMap::GetValueHelper(int id, int type, std::string &text) const {
    if (int result = CheckValueType(id, type)) return result;
    auto current = values.find(id);
    if (current == values.end()) return 3;
    text = current->second;
    return 0;
}

int RegistryMap::SetValueHelper(int id, int type, const std::string &text) {
    if (int result = CheckValueType(id, type)) return result;
    values[id] = text;
    return 0;
}

// --- reading ---------------------------------------------------------------

int RegistryMap::GetValue(int id, bool &value) const {
    std::string text;
    int result = GetValueHelper(id, kMapBool, text);
    if (result == 0) value = text != "0";
    return result;
}

int RegistryMap::GetValue(int id, char &value) const {
    std::string text;
    int result = GetValueHelper(id, kMapChar, text);
    if (result == 0) value = static_cast<char>(static_cast<signed char>(MapAtoi(text)));
    return result;
}

int RegistryMap::GetValue(int id, unsigned char &value) const {
    std::string text;
    int result = GetValueHelper(id, kMapUnsignedChar, text);
    if (result == 0) value = static_cast<unsigned char>(MapAtoi(text));
    return result;
}

int RegistryMap::GetValue(int id, short &value) const {
    std::string text;
    int result = GetValueHelper(id, kMapShort, text);
    if (result == 0) value = static_cast<short>(MapAtoi(text));
    return result;
}

int RegistryMap::GetValue(int id, unsigned short &value) const {
    std::string text;
    int result = GetValueHelper(id, kMapUnsignedShort, text);
    if (result == 0) value = static_cast<unsigned short>(MapAtoi(text));
    return result;
}

int RegistryMap::GetValue(int id, long &value) const {
    std::string text;
    int result = GetValueHelper(id, kMapLong, text);
    if (result == 0) value = MapAtoi(text);
    return result;
}

int RegistryMap::GetValue(int id, unsigned long &value) const {
    std::string text;
    int result = GetValueHelper(id, kMapUnsignedLong, text);
    // A 32-bit unsigned long: "-1" reads back as 0xFFFFFFFF.
    if (result == 0) value = static_cast<std::uint32_t>(MapAtoi(text));
    return result;
}

int RegistryMap::GetValue(int id, double &value) const {
    std::string text;
    int result = GetValueHelper(id, kMapDouble, text);
    if (result == 0) value = std::strtod(text.c_str(), nullptr);
    return result;
}

int RegistryMap::GetValue(int id, std::string &value) const {
    std::string text;
    int result = GetValueHelper(id, kMapString, text);
    if (result == 0) value = text;
    return result;
}

// --- writing ---------------------------------------------------------------

int RegistryMap::SetValue(int id, bool value) { return SetValueHelper(id, kMapBool, value ? "1" : "0"); }

int RegistryMap::SetValue(int id, char value) {
    return SetValueHelper(id, kMapChar, MapNumberText(static_cast<signed char>(value)));
}

int RegistryMap::SetValue(int id, unsigned char value) {
    return SetValueHelper(id, kMapUnsignedChar, MapNumberText(value));
}

int RegistryMap::SetValue(int id, short value) { return SetValueHelper(id, kMapShort, MapNumberText(value)); }

int RegistryMap::SetValue(int id, unsigned short value) {
    return SetValueHelper(id, kMapUnsignedShort, MapNumberText(value));
}

int RegistryMap::SetValue(int id, long value) {
    return SetValueHelper(id, kMapLong, MapNumberText(static_cast<std::int32_t>(value)));
}

int RegistryMap::SetValue(int id, unsigned long value) {
    return SetValueHelper(id, kMapUnsignedLong,
                          MapNumberText(static_cast<std::int32_t>(static_cast<std::uint32_t>(value))));
}

int RegistryMap::SetValue(int id, double value) { return SetValueHelper(id, kMapDouble, MapFormat("%f", value)); }

int RegistryMap::SetValue(int id, const std::string &value) { return SetValueHelper(id, kMapString, value); }
