#pragma once

#include <cstdint>
#include <vector>

namespace quorel::repository {

/// Base of the handles of stored rows: the row number, and the link that the identity map threads through it.
class Identified {
  public:
    explicit Identified(std::int64_t row) noexcept : row_(row) {}
    Identified(const Identified&) = delete;
    Identified& operator=(const Identified&) = delete;
    [[nodiscard]] std::int64_t row() const noexcept { return row_; }

  protected:
    ~Identified() = default;

  private:
    template <class T>
    friend class IdentityMap;
    std::int64_t row_;
    Identified* next_ = nullptr;
};

/// The live handles of one table by row number, none of them owned: while a handle is referenced its row has
/// no other. A handle takes itself out when it dies. Costs one pointer a handle and no allocation.
template <class T>
class IdentityMap {
  public:
    [[nodiscard]] T* find(std::int64_t row) const noexcept {
        if (buckets_.empty())
            return nullptr;
        for (Identified* each = buckets_[bucketOf(row)]; each != nullptr; each = each->next_)
            if (each->row_ == row)
                return static_cast<T*>(each);
        return nullptr;
    }
    void insert(T& handle) {
        if (size_ >= buckets_.size())
            grow();
        link(handle);
        ++size_;
    }
    void erase(T& handle) noexcept {
        Identified** place = &buckets_[bucketOf(handle.row_)];
        while (*place != &handle)
            place = &(*place)->next_;
        *place = handle.next_;
        --size_;
    }
    [[nodiscard]] std::size_t size() const noexcept { return size_; }

  private:
    static constexpr std::size_t kFirstBuckets = 64;

    // Row numbers are given in sequence, so they spread evenly as they are.
    [[nodiscard]] std::size_t bucketOf(std::int64_t row) const noexcept {
        return static_cast<std::size_t>(row) & (buckets_.size() - 1);
    }
    void link(Identified& handle) noexcept {
        Identified*& first = buckets_[bucketOf(handle.row_)];
        handle.next_ = first;
        first = &handle;
    }
    void grow() {
        std::vector<Identified*> old(buckets_.empty() ? kFirstBuckets : buckets_.size() * 2);
        old.swap(buckets_);
        for (Identified* each : old)
            while (each != nullptr) {
                Identified* const next = each->next_;
                link(*each);
                each = next;
            }
    }

    std::vector<Identified*> buckets_;  // their number is a power of two
    std::size_t size_ = 0;
};

}  // namespace quorel::repository
