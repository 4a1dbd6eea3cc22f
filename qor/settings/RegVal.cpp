#include "qor/settings/RegVal.h"

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

// The bytes of a value live in one block behind a count of the values that
// share it.
struct RegValBlock {
    std::atomic<long> sharers;
};

// Bytes kept zero behind every value, so strings read from it end.
constexpr std::size_t kRegValPadding = 4;

RegValBlock *NewRegValBlock(unsigned long count, unsigned char **bytes) {
    void *memory = std::malloc(sizeof(RegValBlock) + count + kRegValPadding);
    if (!memory) throw std::bad_alloc();
    auto *block = new (memory) RegValBlock{};
    block->sharers.store(1, std::memory_order_relaxed);
    *bytes = reinterpret_cast<unsigned char *>(block + 1);
    std::memset(*bytes + count, 0, kRegValPadding);
    return block;
}

void ReleaseRegValBlock(void *heap) {
    auto *block = static_cast<RegValBlock *>(heap);
    if (block && block->sharers.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        block->~RegValBlock();
        std::free(block);
    }
}

unsigned long MultiStringSize(const char *const *strings, unsigned long count) {
    unsigned long total = 1;
    for (unsigned long i = 0; i < count; ++i) total += std::strlen(strings[i] ? strings[i] : "") + 1;
    return total < 2 ? 2 : total;
}

}  // namespace

CRegVal::CRegVal() : heap(nullptr), data(nullptr), size(0), type(0) {}

CRegVal::CRegVal(unsigned long number) : CRegVal() { SetValue(number); }

CRegVal::CRegVal(const char *text) : CRegVal() { SetValue(text, 0); }

CRegVal::CRegVal(unsigned char *const bytes, unsigned long count) : CRegVal() {
    SetValue(bytes, count);
}

CRegVal::CRegVal(const CStringArray &strings) : CRegVal() { SetValue(strings); }

CRegVal::CRegVal(const CRegVal &other) : CRegVal() { *this = other; }

CRegVal::~CRegVal() { FreeDataBuffer(); }

CRegVal &CRegVal::operator=(const CRegVal &other) {
    if (this == &other) return *this;
    if (other.heap) static_cast<RegValBlock *>(other.heap)->sharers.fetch_add(1, std::memory_order_relaxed);
    FreeDataBuffer();
    heap = other.heap;
    data = other.data;
    size = other.size;
    type = other.type;
    return *this;
}

CRegVal &CRegVal::operator=(const CStringArray &strings) {
    SetValue(strings);
    return *this;
}

CRegVal &CRegVal::operator=(unsigned long number) {
    SetValue(number);
    return *this;
}

CRegVal &CRegVal::operator=(const char *text) {
    SetValue(text, 0);
    return *this;
}

unsigned char *CRegVal::AllocateDataBuffer(unsigned long count) {
    FreeDataBuffer();
    if (count == 0) return nullptr;
    heap = NewRegValBlock(count, &data);
    size = count;
    return data;
}

void CRegVal::FreeDataBuffer() {
    ReleaseRegValBlock(heap);
    heap = nullptr;
    data = nullptr;
    size = 0;
}

void CRegVal::Assign(const void *bytes, unsigned long count, unsigned long newType) {
    unsigned char *fresh = nullptr;
    RegValBlock *block = count ? NewRegValBlock(count, &fresh) : nullptr;
    if (count) {
        if (bytes)
            std::memcpy(fresh, bytes, count);
        else
            std::memset(fresh, 0, count);
    }
    FreeDataBuffer();
    heap = block;
    data = fresh;
    size = count;
    type = newType;
}

void CRegVal::SetValue(unsigned long number) {
    // The registry's numbers are 32 bits, little-endian.
    const auto value = static_cast<std::uint32_t>(number);
    const unsigned char bytes[4] = {static_cast<unsigned char>(value), static_cast<unsigned char>(value >> 8),
                                    static_cast<unsigned char>(value >> 16),
                                    static_cast<unsigned char>(value >> 24)};
    Assign(bytes, 4, REG_DWORD);
}

void CRegVal::SetValue(const char *text, int expand) {
    if (!text) text = "";
    Assign(text, static_cast<unsigned long>(std::strlen(text) + 1), expand ? REG_EXPAND_SZ : REG_SZ);
}

void CRegVal::SetValue(unsigned char *const bytes, unsigned long count) {
    Assign(bytes, count, REG_BINARY);
}

void CRegVal::SetValue(const char **const strings, unsigned long count) {
    const unsigned long total = MultiStringSize(strings, count);
    std::string bytes;
    bytes.reserve(total);
    for (unsigned long i = 0; i < count; ++i) {
        bytes += strings[i] ? strings[i] : "";
        bytes += '\0';
    }
    bytes.resize(total, '\0');
    Assign(bytes.data(), total, REG_MULTI_SZ);
}

void CRegVal::SetValue(const CStringArray &strings) {
    std::vector<const char *> pointers;
    pointers.reserve(strings.size());
    for (const std::string &text : strings) pointers.push_back(text.c_str());
    SetValue(pointers.data(), static_cast<unsigned long>(pointers.size()));
}

int CRegVal::GetValue(unsigned long &number) const {
    if (type != REG_DWORD && type != REG_DWORD_BIG_ENDIAN) return 0;
    // Short data reads the zero padding behind it.
    const unsigned char *bytes = data ? data : reinterpret_cast<const unsigned char *>("\0\0\0\0");
    number = static_cast<unsigned long>(static_cast<std::uint32_t>(bytes[0]) |
                                        static_cast<std::uint32_t>(bytes[1]) << 8 |
                                        static_cast<std::uint32_t>(bytes[2]) << 16 |
                                        static_cast<std::uint32_t>(bytes[3]) << 24);
    return 1;
}

int CRegVal::GetValue(unsigned char *&bytes, unsigned long count) const {
    if (type != REG_BINARY && type != REG_RESOURCE_LIST && type != REG_FULL_RESOURCE_DESCRIPTOR)
        return 0;
    if (count != size) return 0;
    if (count) std::memcpy(bytes, data, count);
    return 1;
}

int CRegVal::GetValue(const char *&text) const {
    if (type != REG_SZ && type != REG_EXPAND_SZ && type != REG_LINK && type != REG_MULTI_SZ) return 0;
    text = data ? reinterpret_cast<const char *>(data) : "\0";
    return 1;
}

int CRegVal::GetValue(std::string &text) const {
    if (type != REG_SZ && type != REG_EXPAND_SZ && type != REG_LINK) return 0;
    const char *begin = reinterpret_cast<const char *>(data);
    text.assign(begin ? begin : "", begin ? strnlen(begin, size) : 0);
    return 1;
}

int CRegVal::GetValue(CStringArray &strings) const {
    if (type != REG_MULTI_SZ) return 0;
    strings.clear();
    const char *at = reinterpret_cast<const char *>(data);
    const char *end = at + size;
    while (at && at < end) {
        const std::size_t length = strnlen(at, static_cast<std::size_t>(end - at));
        if (length == 0) break;
        strings.emplace_back(at, length);
        at += length + 1;
    }
    return 1;
}
