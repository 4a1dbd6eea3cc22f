// Reading, writing, deleting, copying and walking registry keys below a root.
#pragma once

#include <string>

#include "qor/platform/Win32Types.h"
#include "qor/settings/RegVal.h"
#include "qor/settings/RegistryStore.h"

// Registry access below `rootKey` (the current user's hive unless told
// otherwise). Every operation is serialised across all processes of the
// user by the recursive named mutex "Qor Registry Mutex", which the object
// opens for itself.
//
// Operations return 1 for success and 0 for failure, except CopyKey, which
// returns the store's error number (0 for success). Nothing throws.
//
// LoadKey and SaveKey close `rootKey` after use; for a predefined hive that
// does nothing, but a root that is an open key handle is spent by its first
// use, so such a caller sets it again before each operation.
class CRegistry {
public:
    CRegistry(HKEY root = HKEY_CURRENT_USER);
    // The same root, and a mutex handle of its own.
    CRegistry(const CRegistry &other);
    CRegistry &operator=(const CRegistry &other);
    virtual ~CRegistry();

    // Called by RegistryTreeWalk for each value; return non-zero to go on.
    virtual int OnValueHit(const char *path, const char *name, const CRegVal &value,
                           unsigned short depth);
    // Called by RegistryTreeWalk (flag 2) for each subkey; non-zero to go on.
    virtual int OnKeyHit(const char *name, unsigned short depth);

    // Points rootKey at `hive` on `machine`. Only the local machine (a null
    // or empty name) exists here; otherwise rootKey stays and the result is 0.
    int Connect(const char *machine, HKEY hive);
    HKEY GetKey() const { return rootKey; }
    HKEY SetKey(HKEY key);  // returns the old key

    // Each fills its output only when the value exists and its type fits.
    int LoadKey(const char *path, const char *name, unsigned long &value);  // types 4, 5
    int LoadKey(const char *path, const char *name, std::string &value);    // types 1, 2, 6
    int LoadKey(const char *path, const char *name, CStringArray &value);   // type 7
    int LoadKey(const char *path, const char *name, CRegVal &value);        // any type
    // Types 3, 8, 9, and `size` must equal the stored size.
    int LoadKey(const char *path, const char *name, unsigned char *buffer, unsigned long size);
    static int LoadKey(void *mutex, const char *path, const char *name, CRegVal &value, HKEY root);

    // Creates the key and its parents as needed. A null name only creates.
    int SaveKey(const char *path, const char *name, const char *value) const;  // type 1
    int SaveKey(const char *path, const char *name, const unsigned long &value) const;  // type 4
    int SaveKey(const char *path, const char *name, const CRegVal &value) const;
    int SaveKey(const char *path, const char *name, const CStringArray &value) const;  // type 7
    int SaveKey(const char *path, const char *name, unsigned char *const buffer,
                unsigned long size) const;  // type 3
    static int SaveKey(void *mutex, const char *path, const char *name, const CRegVal &value,
                       HKEY root);

    // With a name, deletes that value; with a null name, deletes the key at
    // `path` and everything below it, deepest first.
    int DeleteKey(const char *path, const char *name) const;
    static int DeleteKey(void *mutex, const char *path, const char *name, HKEY root);

    // 1 when the key has subkeys or values; the counts go to the non-null
    // outputs (0 when the key cannot be read).
    int HasEntries(const char *path, unsigned long *subkeyCount, unsigned long *valueCount) const;
    static int HasEntries(void *mutex, const char *path, unsigned long *subkeyCount,
                          unsigned long *valueCount, HKEY root);

    // Copies the key sourcePath below `source`, with all its values and
    // subkeys, to destinationPath below `destination`, which is created.
    // Existing values there are overwritten, others stay.
    long CopyKey(HKEY source, HKEY destination, const char *sourcePath,
                 const char *destinationPath);

    // Calls OnValueHit for the values (flag 1) and OnKeyHit for the subkeys
    // (flag 2) of `path`, each level's values before its subkeys, subkeys in
    // name order, descending into each subkey after its OnKeyHit. Stops as
    // soon as a hook returns 0, and then returns 0. A null path walks the
    // root itself and does not descend. Hooks run with the mutex held.
    int RegistryTreeWalk(const char *path, unsigned int flags);

private:
    int RegTreeWalk(const char *path, HKEY key, unsigned int flags, unsigned short depth);

    HKEY rootKey;
    HANDLE mutex;
};
