#include "qor/view3d/Resources.h"

#include <map>
#include <mutex>
#include <tuple>

namespace qor {
namespace {

using Key = std::tuple<HINSTANCE__ *, unsigned, std::string>;

// Registrations run from static constructors of embedded blobs, in any order
// and possibly before main, hence a function-local table.
struct Table {
    std::mutex lock;
    std::map<Key, ResourceBytes> entries;
};
Table &Resources() {
    static Table table;
    return table;
}

}  // namespace

void RegisterResource(HINSTANCE__ *module, unsigned id, const std::string &type, const void *data,
                      std::size_t size) {
    Table &t = Resources();
    std::lock_guard<std::mutex> guard(t.lock);
    t.entries[Key{module, id & 0xFFFFu, type}] = {static_cast<const char *>(data), size};
}

ResourceBytes FindResource(HINSTANCE__ *module, unsigned id, const std::string &type) {
    Table &t = Resources();
    std::lock_guard<std::mutex> guard(t.lock);
    auto it = t.entries.find(Key{module, id & 0xFFFFu, type});
    return it == t.entries.end() ? ResourceBytes{} : it->second;
}

}  // namespace qor
