// KvTList: a doubly linked list that owns copies of its values and holds an index cursor.
#pragma once

#include <utility>

// Reading by index walks the cursor one node at a time from where it stands, so that a walk in index order costs one
// step each. A const read moves the cursor too: a list, and whatever holds it, belongs to one thread.
template <class T>
class KvTList
{
public:
    struct Node
    {
        T value;
        Node* prev = nullptr;
        Node* next = nullptr;

        explicit Node(const T& v) : value(v) {}
    };

    Node* head = nullptr;
    Node* tail = nullptr;
    int count = 0;
    mutable Node* current = nullptr;
    mutable int currentIndex = 0;

    KvTList() = default;
    // Starts as an empty list, so that the destructor clears up when memory runs out half way.
    KvTList(const KvTList& other) : KvTList() { AppendAll(other); }
    KvTList(KvTList&& other) noexcept { Swap(other); }
    ~KvTList() { Clear(); }

    // Replaces the content by copies in order; assigning a list to itself changes nothing.
    KvTList& operator=(const KvTList& other)
    {
        if (this != &other)
        {
            Clear();
            AppendAll(other);
        }
        return *this;
    }
    KvTList& operator=(KvTList&& other) noexcept
    {
        if (this != &other)
        {
            Clear();
            Swap(other);
        }
        return *this;
    }

    virtual Node* NewNode(const T& value) { return new Node(value); }
    virtual void DeleteNode(Node* node) { delete node; }

    // Appends a copy and leaves the cursor on it.
    void AddTail(const T& value)
    {
        Node* node = NewNode(value);
        node->prev = tail;
        (tail ? tail->next : head) = node;
        tail = node;
        current = node;
        currentIndex = count++;
    }

    // Deletes all nodes from head to tail and puts the cursor before the list.
    void Clear()
    {
        for (Node* node = head; node;)
        {
            Node* next = node->next;
            DeleteNode(node);
            node = next;
        }
        head = tail = current = nullptr;
        count = 0;
        currentIndex = -1;
    }

    // The value at index i, which must lie in 0 to count - 1.
    T& operator[](int i) { return At(i)->value; }
    const T& operator[](int i) const { return At(i)->value; }

private:
    Node* At(int i) const
    {
        for (; currentIndex < i; ++currentIndex)
            current = current->next;
        for (; currentIndex > i; --currentIndex)
            current = current->prev;
        return current;
    }

    void AppendAll(const KvTList& other)
    {
        for (const Node* node = other.head; node; node = node->next)
            AddTail(node->value);
    }

    void Swap(KvTList& other) noexcept
    {
        std::swap(head, other.head);
        std::swap(tail, other.tail);
        std::swap(count, other.count);
        std::swap(current, other.current);
        std::swap(currentIndex, other.currentIndex);
    }
};
