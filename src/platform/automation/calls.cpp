#include "platform/automation/calls.h"

#include <algorithm>
#include <memory>

#include "platform/automation/error.h"

namespace quorel::automation {

void Enumerator::nextObjects(std::span<Object> objects, std::size_t& filled) {
    std::array<Value, 64> batch;
    filled = 0;
    while (filled < objects.size()) {
        const std::size_t wanted = std::min(objects.size() - filled, batch.size());
        const std::size_t got = next(std::span(batch).first(wanted));
        Object* const first = objects.data() + filled;
        std::size_t taken = 0;
        for (; taken < got; ++taken) {
            auto* const element = batch[taken].getIf<Object>();
            if (element == nullptr)
                break;
            std::construct_at(first + taken, std::move(*element));
        }
        filled += taken;
        if (taken < got)
            throw Error(error_number::kTypeMismatch);
        if (got < wanted)
            return;
    }
}

MemberId Member::resolve(const Object& object, const void* key) const {
    const MemberId id = object.resolve(name_);
    typeKey_ = key;
    id_ = id;
    return id;
}

bool answersTo(const Object& object, std::u16string_view name) {
    if (!object)
        return false;
    try {
        static_cast<void>(object.resolve(name));
        return true;
    } catch (const Error& error) {
        if (error.number() == error_number::kMemberNotSupported)
            return false;
        throw;
    }
}

void Each::Iterator::advance() {
    if (!owner_->next(current_))
        owner_ = nullptr;
}

bool Each::next(Object& object) {
    if (position_ == size_) {
        if (ended_)
            return false;
        position_ = 0;
        size_ = 0;
        size_ = enumerator_->next(batch_);
        ended_ = size_ < batch_.size();
        if (size_ == 0)
            return false;
    }
    Object* const element = batch_[position_].getIf<Object>();
    if (element == nullptr)
        throw Error(error_number::kTypeMismatch);
    object = std::move(*element);
    ++position_;
    return true;
}

}  // namespace quorel::automation
