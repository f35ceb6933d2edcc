#pragma once

namespace host {

// Counts what is under way, also when that ends by an exception.
class Counted {
public:
    explicit Counted(int& count) : m_count(count) { ++m_count; }
    ~Counted() { --m_count; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

private:
    int& m_count;
};

}  // namespace host
