// kvList: the framework's doubly linked list with a sentinel node.
// Values are held by copy; a list of pointers never deletes its pointees.
// Lists are passed by reference and never copied.
#ifndef KV_LIST_H
#define KV_LIST_H

template <class T>
class kvList {
public:
    struct Node {
        Node* next;
        Node* prev;
        T value;
        Node() : next(0), prev(0), value() {}
        explicit Node(const T& v) : next(0), prev(0), value(v) {}
    };

    class iterator {
    public:
        iterator() : m_node(0) {}
        iterator(Node* n) : m_node(n) {}
        iterator(const iterator& o) : m_node(o.m_node) {}
        iterator& operator=(const iterator& o) { m_node = o.m_node; return *this; }
        bool operator==(const iterator& o) const { return m_node == o.m_node; }
        bool operator!=(const iterator& o) const { return m_node != o.m_node; }
        iterator& operator++() { m_node = m_node->next; return *this; }
        iterator operator++(int) { iterator t(*this); m_node = m_node->next; return t; }
        // Steps back; from end() this reaches the last node, from begin() null.
        iterator& operator--() { m_node = m_node->prev; return *this; }
        T& operator*() const { return m_node->value; }
        T* operator->() const { return &m_node->value; }
        Node* pNode() const { return m_node; }
        void pNode(Node* n) { m_node = n; }
    private:
        Node* m_node;
    };

    kvList() : m_head(0), m_end(new Node()) { m_head = m_end; }
    virtual ~kvList() { clear(); delete m_end; }

    iterator begin() const { return iterator(m_head); }
    iterator end() const { return iterator(m_end); }
    bool empty() const { return m_head == m_end; }

    int size() const {
        int n = 0;
        for (Node* p = m_head; p != m_end; p = p->next) ++n;
        return n;
    }

    // Inserts before `before`; insert(end(), v) appends.
    iterator insert(iterator before, const T& value) {
        Node* at = before.pNode();
        Node* n = new Node(value);
        n->next = at;
        n->prev = at->prev;
        if (at->prev) at->prev->next = n; else m_head = n;
        at->prev = n;
        return iterator(n);
    }

    iterator erase(iterator it) {
        Node* n = it.pNode();
        if (n == m_end) return it;
        Node* next = n->next;
        unlink(n);
        delete n;
        return iterator(next);
    }

    iterator erase(iterator first, iterator last) {
        while (first != last) first = erase(first);
        return last;
    }

    void clear() { erase(begin(), end()); }

    void swap(kvList& other) {
        Node* h = m_head; m_head = other.m_head; other.m_head = h;
        Node* e = m_end; m_end = other.m_end; other.m_end = e;
    }

    // Merges the sorted `other` into this sorted list; on equal keys the
    // elements of this list stay first. `other` ends empty.
    void merge(kvList& other, bool (*before)(T&, T&)) {
        if (&other == this) return;
        Node* cur = m_head;
        while (cur != m_end && other.m_head != other.m_end) {
            Node* o = other.m_head;
            if (before(o->value, cur->value)) {
                other.unlink(o);
                linkBefore(cur, o);
            } else {
                cur = cur->next;
            }
        }
        while (other.m_head != other.m_end) {
            Node* o = other.m_head;
            other.unlink(o);
            linkBefore(m_end, o);
        }
    }

    // Moves the node at `it` of `from` to stand before `before` in this list.
    void splice(iterator before, kvList& from, iterator it) {
        Node* n = it.pNode();
        if (n == from.m_end) return;
        from.unlink(n);
        linkBefore(before.pNode(), n);
    }

private:
    kvList(const kvList&);
    kvList& operator=(const kvList&);

    void unlink(Node* n) {
        if (n->prev) n->prev->next = n->next; else m_head = n->next;
        n->next->prev = n->prev;
        n->next = n->prev = 0;
    }
    void linkBefore(Node* at, Node* n) {
        n->next = at;
        n->prev = at->prev;
        if (at->prev) at->prev->next = n; else m_head = n;
        at->prev = n;
    }

    Node* m_head;
    Node* m_end;
};

#endif
