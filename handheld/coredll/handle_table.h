// Objects behind handles that the program got from this library.
#pragma once
#include <windows.h>

#include <memory>
#include <mutex>
#include <unordered_map>
#include <vector>

namespace handheld {

// A handle's object is shared, so that closing the handle on one thread leaves it whole for a call under way
// on another.
template <class Object>
class HandleTable {
  public:
    void Add(HANDLE handle, std::shared_ptr<Object> object) {
        std::lock_guard guard(m_lock);
        m_objects[handle] = std::move(object);
    }

    // Null for a handle that is not in the table.
    std::shared_ptr<Object> Find(HANDLE handle) {
        std::lock_guard guard(m_lock);
        auto found = m_objects.find(handle);
        return found == m_objects.end() ? nullptr : found->second;
    }

    std::shared_ptr<Object> Take(HANDLE handle) {
        std::lock_guard guard(m_lock);
        auto node = m_objects.extract(handle);
        return node ? std::move(node.mapped()) : nullptr;
    }

    std::vector<std::pair<HANDLE, std::shared_ptr<Object>>> All() {
        std::lock_guard guard(m_lock);
        return {m_objects.begin(), m_objects.end()};
    }

  private:
    std::mutex m_lock;
    std::unordered_map<HANDLE, std::shared_ptr<Object>> m_objects;
};

// The one table of a kind of object.  Never destroyed: at process end a driver must not be called any more.
template <class Object>
HandleTable<Object>& Handles() {
    static auto* table = new HandleTable<Object>;
    return *table;
}

}  // namespace handheld
