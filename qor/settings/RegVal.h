// One typed registry value: a type number and its bytes.
#pragma once

#include <string>
#include <vector>

#include "qor/platform/Win32Types.h"

using CString = std::string;
using CStringArray = std::vector<std::string>;

// A registry value as it is stored: `type` is the registry's type number
// (1 string, 2 string with environment references, 3 binary, 4 32-bit
// number, 5 big-endian 32-bit number, 6 link, 7 list of strings, 8 resource
// list, 9 resource descriptor), 0 for a value never set.
//
// Numbers are 4 bytes, little-endian, whatever the width of unsigned long.
// Strings keep their terminating zero in the size; a list of strings is each
// string with its zero and one more zero, and an empty list is two zeros.
//
// Copying shares: a copy points at the same bytes, and GetRawData() of both
// gives one pointer. The bytes live as long as any sharer holds them, and a
// SetValue on one of them gives that one fresh bytes, leaving the others as
// they were. The bytes are always followed by four zero bytes the size does
// not count, so a string read from any value is terminated.
class CRegVal {
public:
    CRegVal();
    CRegVal(unsigned long number);                          // type 4
    CRegVal(const char *text);                              // type 1; null is ""
    CRegVal(unsigned char *const bytes, unsigned long size);  // type 3, copied
    CRegVal(const CStringArray &strings);                   // type 7
    CRegVal(const CRegVal &other);
    ~CRegVal();

    CRegVal &operator=(const CRegVal &other);
    CRegVal &operator=(const CStringArray &strings);
    CRegVal &operator=(unsigned long number);
    CRegVal &operator=(const char *text);

    void SetValue(unsigned long number);                       // type 4, size 4
    void SetValue(const char *text, int expand = 0);           // type 1, or 2 with expand
    void SetValue(unsigned char *const bytes, unsigned long size);  // type 3
    void SetValue(const char **const strings, unsigned long count);  // type 7
    void SetValue(const CStringArray &strings);                // type 7

    void SetType(unsigned long newType) { type = newType; }
    unsigned long GetType() const { return type; }
    unsigned long GetSize() const { return size; }
    unsigned char *GetRawData() { return data; }

    // Each returns 1 and fills its argument when the type fits, and 0
    // leaving the argument alone when it does not.
    int GetValue(unsigned long &number) const;                     // types 4, 5: first 4 bytes, no swap
    int GetValue(unsigned char *&bytes, unsigned long size) const;  // 3, 8, 9: size must match exactly
    int GetValue(const char *&text) const;                         // 1, 2, 6, 7: points into the value
    int GetValue(std::string &text) const;                         // 1, 2, 6: up to the first zero
    int GetValue(CStringArray &strings) const;                     // 7: up to the first empty string

private:
    friend class CRegistry;

    // Gives this value `count` fresh bytes (the old ones are let go) and
    // returns them; null for 0.
    unsigned char *AllocateDataBuffer(unsigned long count);
    // Lets go of the bytes: data null, size 0. The type stays.
    void FreeDataBuffer();
    // Takes `bytes` as this value's contents, copied before the old ones go,
    // so a value may be set from its own data.
    void Assign(const void *bytes, unsigned long count, unsigned long newType);

    void *heap;           // the shared block the bytes live in, null when empty
    unsigned char *data;  // null when empty
    unsigned long size;   // in bytes
    unsigned long type;
};
