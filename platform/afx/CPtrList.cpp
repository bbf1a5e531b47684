// The framework's list of pointers.
#include "afx.h"

CPtrList::Node* CPtrList::ToNode(POSITION pos) {
    if (!pos)
        AfxThrowInvalidArgException();
    return reinterpret_cast<Node*>(pos);
}

CPtrList::Node* CPtrList::Link(Node* prev, Node* next, void* value) {
    Node* node = new Node{next, prev, value};
    (prev ? prev->next : m_head) = node;
    (next ? next->prev : m_tail) = node;
    ++m_count;
    return node;
}

void CPtrList::Unlink(Node* node) {
    (node->prev ? node->prev->next : m_head) = node->next;
    (node->next ? node->next->prev : m_tail) = node->prev;
    --m_count;
    delete node;
}

void*& CPtrList::GetHead() {
    return ToNode(GetHeadPosition())->data;
}

void*& CPtrList::GetTail() {
    return ToNode(GetTailPosition())->data;
}

void*& CPtrList::GetNext(POSITION& pos) {
    Node* node = ToNode(pos);
    pos = ToPosition(node->next);
    return node->data;
}

void* CPtrList::GetNext(POSITION& pos) const {
    return const_cast<CPtrList*>(this)->GetNext(pos);
}

void*& CPtrList::GetPrev(POSITION& pos) {
    Node* node = ToNode(pos);
    pos = ToPosition(node->prev);
    return node->data;
}

void*& CPtrList::GetAt(POSITION pos) {
    return ToNode(pos)->data;
}

POSITION CPtrList::AddHead(void* value) {
    return ToPosition(Link(nullptr, m_head, value));
}

POSITION CPtrList::AddTail(void* value) {
    return ToPosition(Link(m_tail, nullptr, value));
}

POSITION CPtrList::InsertBefore(POSITION pos, void* value) {
    if (!pos)
        return AddHead(value);
    Node* node = ToNode(pos);
    return ToPosition(Link(node->prev, node, value));
}

POSITION CPtrList::InsertAfter(POSITION pos, void* value) {
    if (!pos)
        return AddTail(value);
    Node* node = ToNode(pos);
    return ToPosition(Link(node, node->next, value));
}

void* CPtrList::RemoveHead() {
    Node* node = ToNode(GetHeadPosition());
    void* value = node->data;
    Unlink(node);
    return value;
}

void* CPtrList::RemoveTail() {
    Node* node = ToNode(GetTailPosition());
    void* value = node->data;
    Unlink(node);
    return value;
}

void CPtrList::RemoveAt(POSITION pos) {
    Unlink(ToNode(pos));
}

void CPtrList::RemoveAll() {
    while (m_head)
        Unlink(m_head);
}

POSITION CPtrList::Find(void* value, POSITION startAfter) const {
    Node* node = startAfter ? ToNode(startAfter)->next : m_head;
    for (; node; node = node->next)
        if (node->data == value)
            return ToPosition(node);
    return nullptr;
}

POSITION CPtrList::FindIndex(int index) const {
    if (index < 0 || index >= m_count)
        return nullptr;
    Node* node = m_head;
    while (index-- > 0)
        node = node->next;
    return ToPosition(node);
}
