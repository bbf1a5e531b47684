// The framework's string collections: a growable array and a doubly linked
// list of CString. Both are CObjects and serialise through CArchive.
#pragma once

// The collections derive from CObject: the framework's core comes first
// when this header is included on its own (afx.h includes it at its end).
#include "afx.h"
#include "afxstr.h"

#include <vector>

class CArchive;

// A growable array of strings kept contiguous, so GetData() can go to the C
// library's qsort: CString is one pointer (see atlstr.h), so moving elements
// bytewise is safe. An index out of range throws CInvalidArgException.
class CStringArray : public CObject {
public:
    CStringArray() = default;
    ~CStringArray() override = default;

    int GetSize() const { return static_cast<int>(m_data.size()); }
    int GetCount() const { return GetSize(); }
    int GetUpperBound() const { return GetSize() - 1; }
    BOOL IsEmpty() const { return m_data.empty(); }
    // Grows with empty strings or drops the tail; growBy (when not -1) is the
    // number of elements added to the capacity at a time, 0 meaning the
    // default rule.
    void SetSize(int newSize, int growBy = -1);
    void FreeExtra();
    void RemoveAll() { m_data.clear(); }

    const CString& GetAt(int index) const { return m_data[Checked(index)]; }
    void SetAt(int index, LPCTSTR value) { m_data[Checked(index)] = value; }
    void SetAt(int index, const CString& value) { m_data[Checked(index)] = value; }
    CString& ElementAt(int index) { return m_data[Checked(index)]; }
    const CString& ElementAt(int index) const { return m_data[Checked(index)]; }
    CString& operator[](int index) { return ElementAt(index); }
    const CString& operator[](int index) const { return GetAt(index); }
    // The elements, contiguous; null when the array is empty.
    CString* GetData() { return m_data.empty() ? nullptr : m_data.data(); }
    const CString* GetData() const { return m_data.empty() ? nullptr : m_data.data(); }

    // Each returns the index of the (first) new element.
    int Add(LPCTSTR value);
    int Add(const CString& value);
    int Append(const CStringArray& other);
    void Copy(const CStringArray& other);
    // Inserts count copies of value before index (index may be GetSize(), or
    // beyond it: the array then grows with empty strings up to index).
    void InsertAt(int index, const CString& value, int count = 1);
    void InsertAt(int startIndex, const CStringArray& other);
    void RemoveAt(int index, int count = 1);

    // The element count (WriteCount form), then each string as CArchive
    // writes a CString.
    void Serialize(CArchive& ar) override;

private:
    std::size_t Checked(int index) const;
    void Reserve(std::size_t size);

    std::vector<CString> m_data;
    int m_growBy = -1;
};

// A doubly linked list of strings. A POSITION names a node and stays valid
// until that node is removed; a null POSITION where a node is needed throws
// CInvalidArgException.
class CStringList : public CObject {
public:
    CStringList() = default;
    ~CStringList() override { RemoveAll(); }

    int GetCount() const { return m_count; }
    int GetSize() const { return m_count; }
    BOOL IsEmpty() const { return m_count == 0; }

    CString& GetHead();
    const CString& GetHead() const;
    CString& GetTail();
    const CString& GetTail() const;
    POSITION GetHeadPosition() const { return ToPosition(m_head); }
    POSITION GetTailPosition() const { return ToPosition(m_tail); }

    // The element at pos; pos moves on to the next (previous) node, or null.
    CString& GetNext(POSITION& pos);
    const CString& GetNext(POSITION& pos) const;
    CString& GetPrev(POSITION& pos);
    const CString& GetPrev(POSITION& pos) const;
    CString& GetAt(POSITION pos);
    const CString& GetAt(POSITION pos) const;
    void SetAt(POSITION pos, const CString& value) { GetAt(pos) = value; }

    POSITION AddHead(const CString& value);
    POSITION AddTail(const CString& value);
    POSITION InsertBefore(POSITION pos, const CString& value);
    POSITION InsertAfter(POSITION pos, const CString& value);

    // Both throw CInvalidArgException on an empty list.
    CString RemoveHead();
    CString RemoveTail();
    void RemoveAt(POSITION pos);
    void RemoveAll();

    // The first node after startAfter (from the head when null) whose string
    // equals value exactly; null when there is none.
    POSITION Find(LPCTSTR value, POSITION startAfter = nullptr) const;
    // The node at a zero-based index; null when out of range.
    POSITION FindIndex(int index) const;

    // The element count (WriteCount form), then each string head to tail.
    void Serialize(CArchive& ar) override;

private:
    struct Node {
        Node* next;
        Node* prev;
        CString data;
    };
    static POSITION ToPosition(Node* node) { return reinterpret_cast<POSITION>(node); }
    static Node* ToNode(POSITION pos);
    Node* Link(Node* prev, Node* next, const CString& value);
    void Unlink(Node* node);

    Node* m_head = nullptr;
    Node* m_tail = nullptr;
    int m_count = 0;
};

// A doubly linked list of untyped pointers, as the framework keeps its
// documents, views and templates. A POSITION names a node and stays valid
// until that node is removed; a null POSITION where a node is needed throws
// CInvalidArgException.
class CPtrList : public CObject {
public:
    CPtrList() = default;
    ~CPtrList() override { RemoveAll(); }

    int GetCount() const { return m_count; }
    int GetSize() const { return m_count; }
    BOOL IsEmpty() const { return m_count == 0; }

    void*& GetHead();
    void*& GetTail();
    POSITION GetHeadPosition() const { return ToPosition(m_head); }
    POSITION GetTailPosition() const { return ToPosition(m_tail); }
    // The element at pos; pos moves on to the next (previous) node, or null.
    void*& GetNext(POSITION& pos);
    void* GetNext(POSITION& pos) const;
    void*& GetPrev(POSITION& pos);
    void*& GetAt(POSITION pos);
    void SetAt(POSITION pos, void* value) { GetAt(pos) = value; }

    POSITION AddHead(void* value);
    POSITION AddTail(void* value);
    POSITION InsertBefore(POSITION pos, void* value);
    POSITION InsertAfter(POSITION pos, void* value);
    // Both throw CInvalidArgException on an empty list.
    void* RemoveHead();
    void* RemoveTail();
    void RemoveAt(POSITION pos);
    void RemoveAll();

    // The first node after startAfter (from the head when null) that holds
    // value; null when there is none.
    POSITION Find(void* value, POSITION startAfter = nullptr) const;
    // The node at a zero-based index; null when out of range.
    POSITION FindIndex(int index) const;

private:
    struct Node {
        Node* next;
        Node* prev;
        void* data;
    };
    static POSITION ToPosition(Node* node) { return reinterpret_cast<POSITION>(node); }
    static Node* ToNode(POSITION pos);
    Node* Link(Node* prev, Node* next, void* value);
    void Unlink(Node* node);

    Node* m_head = nullptr;
    Node* m_tail = nullptr;
    int m_count = 0;
};

// A growable array of untyped pointers; the array never owns what they point
// to. An index out of range throws CInvalidArgException.
class CPtrArray : public CObject {
public:
    CPtrArray() = default;
    ~CPtrArray() override = default;

    int GetSize() const { return static_cast<int>(m_data.size()); }
    int GetCount() const { return GetSize(); }
    int GetUpperBound() const { return GetSize() - 1; }
    BOOL IsEmpty() const { return m_data.empty(); }
    void RemoveAll() { m_data.clear(); }

    void* GetAt(int index) const { return m_data[Checked(index)]; }
    void SetAt(int index, void* value) { m_data[Checked(index)] = value; }
    void*& ElementAt(int index) { return m_data[Checked(index)]; }
    void* operator[](int index) const { return GetAt(index); }
    void*& operator[](int index) { return ElementAt(index); }

    // Returns the index of the new element.
    int Add(void* value);
    void InsertAt(int index, void* value, int count = 1);
    void RemoveAt(int index, int count = 1);

private:
    std::size_t Checked(int index) const;

    std::vector<void*> m_data;
};
