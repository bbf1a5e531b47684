#include "afx.h"

CStringList::Node* CStringList::ToNode(POSITION pos) {
    if (!pos)
        AfxThrowInvalidArgException();
    return reinterpret_cast<Node*>(pos);
}

// A new node between prev and next (either may be null at an end).
CStringList::Node* CStringList::Link(Node* prev, Node* next, const CString& value) {
    Node* node = new Node{next, prev, value};
    (prev ? prev->next : m_head) = node;
    (next ? next->prev : m_tail) = node;
    ++m_count;
    return node;
}

void CStringList::Unlink(Node* node) {
    (node->prev ? node->prev->next : m_head) = node->next;
    (node->next ? node->next->prev : m_tail) = node->prev;
    --m_count;
    delete node;
}

CString& CStringList::GetHead() {
    return ToNode(GetHeadPosition())->data;
}
const CString& CStringList::GetHead() const {
    return ToNode(GetHeadPosition())->data;
}
CString& CStringList::GetTail() {
    return ToNode(GetTailPosition())->data;
}
const CString& CStringList::GetTail() const {
    return ToNode(GetTailPosition())->data;
}

CString& CStringList::GetNext(POSITION& pos) {
    Node* node = ToNode(pos);
    pos = ToPosition(node->next);
    return node->data;
}

const CString& CStringList::GetNext(POSITION& pos) const {
    return const_cast<CStringList*>(this)->GetNext(pos);
}

CString& CStringList::GetPrev(POSITION& pos) {
    Node* node = ToNode(pos);
    pos = ToPosition(node->prev);
    return node->data;
}

const CString& CStringList::GetPrev(POSITION& pos) const {
    return const_cast<CStringList*>(this)->GetPrev(pos);
}

CString& CStringList::GetAt(POSITION pos) {
    return ToNode(pos)->data;
}
const CString& CStringList::GetAt(POSITION pos) const {
    return ToNode(pos)->data;
}

POSITION CStringList::AddHead(const CString& value) {
    return ToPosition(Link(nullptr, m_head, value));
}

POSITION CStringList::AddTail(const CString& value) {
    return ToPosition(Link(m_tail, nullptr, value));
}

POSITION CStringList::InsertBefore(POSITION pos, const CString& value) {
    if (!pos)
        return AddHead(value);
    Node* node = ToNode(pos);
    return ToPosition(Link(node->prev, node, value));
}

POSITION CStringList::InsertAfter(POSITION pos, const CString& value) {
    if (!pos)
        return AddTail(value);
    Node* node = ToNode(pos);
    return ToPosition(Link(node, node->next, value));
}

CString CStringList::RemoveHead() {
    Node* node = ToNode(GetHeadPosition());
    CString value(std::move(node->data));
    Unlink(node);
    return value;
}

CString CStringList::RemoveTail() {
    Node* node = ToNode(GetTailPosition());
    CString value(std::move(node->data));
    Unlink(node);
    return value;
}

void CStringList::RemoveAt(POSITION pos) {
    Unlink(ToNode(pos));
}

void CStringList::RemoveAll() {
    for (Node* n = m_head; n;) {
        Node* next = n->next;
        delete n;
        n = next;
    }
    m_head = m_tail = nullptr;
    m_count = 0;
}

POSITION CStringList::Find(LPCTSTR value, POSITION startAfter) const {
    Node* n = startAfter ? ToNode(startAfter)->next : m_head;
    for (; n; n = n->next)
        if (n->data.Compare(value) == 0)
            return ToPosition(n);
    return nullptr;
}

POSITION CStringList::FindIndex(int index) const {
    if (index < 0 || index >= m_count)
        return nullptr;
    Node* n = m_head;
    while (index-- > 0)
        n = n->next;
    return ToPosition(n);
}

void CStringList::Serialize(CArchive& ar) {
    if (ar.IsStoring()) {
        ar.WriteCount(static_cast<ULONGLONG>(m_count));
        for (Node* n = m_head; n; n = n->next)
            ar << n->data;
        return;
    }
    ULONGLONG count = ar.ReadCount();
    RemoveAll();
    for (ULONGLONG i = 0; i < count; ++i) {
        CString s;
        ar >> s;
        AddTail(s);
    }
}
