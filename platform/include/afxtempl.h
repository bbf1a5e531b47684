// Collection templates of the framework.
#pragma once

#include "afx.h"

#include <list>
#include <unordered_map>
#include <utility>

// A hash map with the framework's interface. Iteration runs in insertion order;
// a POSITION names an element and stays valid until that element is removed.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE> class CMap {
public:
    CMap() = default;
    CMap(const CMap&) = delete;
    CMap& operator=(const CMap&) = delete;

    int GetCount() const { return static_cast<int>(m_items.size()); }
    int GetSize() const { return GetCount(); }
    bool IsEmpty() const { return m_items.empty(); }

    BOOL Lookup(ARG_KEY key, VALUE& value) const {
        auto it = m_index.find(key);
        if (it == m_index.end())
            return FALSE;
        value = it->second->second;
        return TRUE;
    }
    // The value under key, default-constructed and added if there is none.
    VALUE& operator[](ARG_KEY key) {
        auto it = m_index.find(key);
        if (it != m_index.end())
            return it->second->second;
        m_items.emplace_back(key, VALUE());
        m_index.emplace(key, std::prev(m_items.end()));
        return m_items.back().second;
    }
    void SetAt(ARG_KEY key, ARG_VALUE value) { (*this)[key] = value; }
    BOOL RemoveKey(ARG_KEY key) {
        auto it = m_index.find(key);
        if (it == m_index.end())
            return FALSE;
        m_items.erase(it->second);
        m_index.erase(it);
        return TRUE;
    }
    void RemoveAll() {
        m_index.clear();
        m_items.clear();
    }

    POSITION GetStartPosition() const {
        return m_items.empty() ? nullptr : ToPosition(m_items.begin());
    }
    void GetNextAssoc(POSITION& pos, KEY& key, VALUE& value) const {
        auto* item = reinterpret_cast<const Item*>(pos);
        key = item->first;
        value = item->second;
        auto it = m_index.find(item->first)->second;
        ++it;
        pos = it == m_items.end() ? nullptr : ToPosition(it);
    }

private:
    using Item = std::pair<KEY, VALUE>;
    using Iter = typename std::list<Item>::const_iterator;
    static POSITION ToPosition(Iter it) {
        return reinterpret_cast<POSITION>(const_cast<Item*>(&*it));
    }

    std::list<Item> m_items;
    std::unordered_map<KEY, typename std::list<Item>::iterator> m_index;
};
