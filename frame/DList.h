// DList: the module's list template, a doubly linked list of item pointers
// with a cursor.
//
// Access by index walks from the cursor, forward or backward by the
// difference, so loops in ascending (or descending) order cost one link step
// per element. Loop in order, or over nodes; never by random index in an
// inner loop.
//
// An owning list (the default) deletes its items through DeleteItem. Copies
// are deep when T can be copied, and always own their items.
#pragma once
#include <type_traits>
#include <utility>

template <class T>
class DList {
public:
    struct Node {
        T* item;
        Node* prev;
        Node* next;
    };

    explicit DList(int owns = 1) : m_owns(owns) {}
    DList(const DList& other) : m_owns(1) { CopyFrom(other); }
    DList(DList&& other) noexcept { Steal(other); }
    DList& operator=(const DList& other) {
        if (this != &other) {
            RemoveAll();
            m_owns = 1;
            CopyFrom(other);
        }
        return *this;
    }
    DList& operator=(DList&& other) noexcept {
        if (this != &other) {
            RemoveAll();
            Steal(other);
        }
        return *this;
    }

    // Item comparison: non-zero when the items differ. The default says two
    // items differ when their addresses differ.
    virtual int Compare(const T* a, const T* b) const { return a != b; }
    virtual ~DList() { RemoveAll(); }

    int Count() const { return m_count; }
    bool IsEmpty() const { return m_count == 0; }
    int Owns() const { return m_owns; }
    void SetOwns(int owns) { m_owns = owns; }

    Node* HeadNode() const { return m_head; }
    Node* TailNode() const { return m_tail; }
    T* First() const { return m_head ? m_head->item : nullptr; }
    T* Last() const { return m_tail ? m_tail->item : nullptr; }

    // The node at `index`, walking from the cursor; null out of range. The
    // cursor stays on the node found.
    Node* NodeAt(int index) const {
        if (index < 0 || index >= m_count) return nullptr;
        if (!m_cursor) {
            m_cursor = m_head;
            m_cursorIndex = 0;
        }
        // From whichever of head, cursor and tail is nearest.
        int fromCursor = index - m_cursorIndex;
        if (index < (fromCursor < 0 ? -fromCursor : fromCursor)) {
            m_cursor = m_head;
            m_cursorIndex = 0;
        } else if (m_count - 1 - index < (fromCursor < 0 ? -fromCursor : fromCursor)) {
            m_cursor = m_tail;
            m_cursorIndex = m_count - 1;
        }
        while (m_cursorIndex < index) {
            m_cursor = m_cursor->next;
            ++m_cursorIndex;
        }
        while (m_cursorIndex > index) {
            m_cursor = m_cursor->prev;
            --m_cursorIndex;
        }
        return m_cursor;
    }

    // The item at `index`. Out of range the cursor stays and the item under
    // it is returned (null for an empty list): callers check their bounds.
    T* GetAt(int index) const {
        Node* n = NodeAt(index);
        if (n) return n->item;
        if (!m_cursor && m_head) {
            m_cursor = m_head;
            m_cursorIndex = 0;
        }
        return m_cursor ? m_cursor->item : nullptr;
    }
    T* operator[](int index) const { return GetAt(index); }

    // Appends at the end; the cursor moves onto the new node.
    void Append(T* item) { LinkBefore(nullptr, item); }
    void AddHead(T* item) { LinkBefore(m_head, item); }
    // Inserts before position `index` (Count() appends); the cursor moves onto
    // the new node.
    void InsertAt(int index, T* item) {
        if (index >= m_count) Append(item);
        else LinkBefore(NodeAt(index < 0 ? 0 : index), item);
    }
    void InsertAfter(Node* node, T* item) { LinkBefore(node ? node->next : m_head, item); }
    void InsertBefore(Node* node, T* item) { LinkBefore(node, item); }

    // Unlinks the node at `index` and hands its item to the caller.
    T* Detach(int index) { return Unlink(NodeAt(index)); }
    T* DetachNode(Node* node) { return Unlink(node); }
    // Removes the node at `index`, deleting the item if the list owns it.
    void RemoveAt(int index) { RemoveNode(NodeAt(index)); }
    void RemoveNode(Node* node) {
        if (!node) return;
        T* item = Unlink(node);
        if (m_owns) DeleteItem(item);
    }
    void RemoveAll() {
        for (Node* n = m_head; n;) {
            Node* next = n->next;
            if (m_owns) DeleteItem(n->item);
            delete n;
            n = next;
        }
        m_head = m_tail = m_cursor = nullptr;
        m_count = m_cursorIndex = 0;
    }

    // The index of the first item that Compare finds equal to `item`, or -1.
    int Find(const T* item) const {
        int i = 0;
        for (Node* n = m_head; n; n = n->next, ++i)
            if (!Compare(n->item, item)) return i;
        return -1;
    }

    // Moves all of `other`'s nodes behind this list's; `other` ends empty.
    void Splice(DList& other) {
        if (&other == this || !other.m_head) return;
        if (m_tail) {
            m_tail->next = other.m_head;
            other.m_head->prev = m_tail;
        } else {
            m_head = other.m_head;
        }
        m_tail = other.m_tail;
        m_count += other.m_count;
        other.m_head = other.m_tail = other.m_cursor = nullptr;
        other.m_count = other.m_cursorIndex = 0;
    }

    void Reverse() {
        for (Node* n = m_head; n; n = n->prev) std::swap(n->prev, n->next);
        std::swap(m_head, m_tail);
        m_cursor = nullptr;
        m_cursorIndex = 0;
    }

    // Iteration over items: for (T& x : list).
    class iterator {
    public:
        explicit iterator(Node* n) : m_node(n) {}
        T& operator*() const { return *m_node->item; }
        T* operator->() const { return m_node->item; }
        iterator& operator++() {
            m_node = m_node->next;
            return *this;
        }
        bool operator!=(const iterator& o) const { return m_node != o.m_node; }
        bool operator==(const iterator& o) const { return m_node == o.m_node; }
        Node* node() const { return m_node; }
    private:
        Node* m_node;
    };
    iterator begin() const { return iterator(m_head); }
    iterator end() const { return iterator(nullptr); }

protected:
    // How an owned item goes; lists of arrays or malloc'd texts override it.
    // Called from RemoveAll, so a derived destructor that overrides it must
    // empty the list itself.
    virtual void DeleteItem(T* item) { delete item; }

    // How an item is copied for a deep copy; null when T cannot be copied.
    virtual T* CloneItem(const T* item) const {
        if constexpr (std::is_copy_constructible_v<T> && !std::is_abstract_v<T>)
            return item ? new T(*item) : nullptr;
        else
            return nullptr;
    }

    void CopyFrom(const DList& other) {
        for (Node* n = other.m_head; n; n = n->next) Append(other.CloneItem(n->item));
    }

private:
    // The cursor ends on the new node when its index is known at no cost;
    // otherwise it is dropped and the next access starts from an end.
    void LinkBefore(Node* at, T* item) {
        Node* n = new Node{item, at ? at->prev : m_tail, at};
        if (n->prev) n->prev->next = n;
        else m_head = n;
        if (at) at->prev = n;
        else m_tail = n;
        ++m_count;
        if (!at) {
            m_cursor = n;
            m_cursorIndex = m_count - 1;
        } else if (at == m_cursor) {
            m_cursor = n;  // takes the index of the node it went before
        } else if (at == n->next && !n->prev && m_cursor) {
            ++m_cursorIndex;  // a new head shifts the cursor by one
        } else {
            m_cursor = nullptr;
            m_cursorIndex = 0;
        }
    }

    T* Unlink(Node* n) {
        if (!n) return nullptr;
        if (n->prev) n->prev->next = n->next;
        else m_head = n->next;
        if (n->next) n->next->prev = n->prev;
        else m_tail = n->prev;
        if (m_cursor == n) {
            m_cursor = n->next;  // the follower takes the index
            if (!m_cursor) {
                m_cursor = n->prev;
                m_cursorIndex = m_count - 2;
            }
        } else {
            m_cursor = nullptr;
            m_cursorIndex = 0;
        }
        --m_count;
        if (!m_count) {
            m_cursor = nullptr;
            m_cursorIndex = 0;
        }
        T* item = n->item;
        delete n;
        return item;
    }

    void Steal(DList& other) {
        m_count = other.m_count;
        m_cursorIndex = other.m_cursorIndex;
        m_cursor = other.m_cursor;
        m_owns = other.m_owns;
        m_head = other.m_head;
        m_tail = other.m_tail;
        other.m_head = other.m_tail = other.m_cursor = nullptr;
        other.m_count = other.m_cursorIndex = 0;
    }

    // Field order as the exported layout has it.
    int m_count = 0;
    mutable int m_cursorIndex = 0;
    mutable Node* m_cursor = nullptr;
    int m_owns = 1;
    Node* m_head = nullptr;
    Node* m_tail = nullptr;
};
