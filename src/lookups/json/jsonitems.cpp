#include "lookups/json/jsonitems.h"

namespace {

/// Up to so many names are looked through one by one.
constexpr std::size_t fewNames = 12;
constexpr std::size_t usualNames = 8;

} // namespace

std::optional<std::size_t> JsonNames::find(QStringView name) const
{
    if (!index_.isEmpty()) {
        const auto found = index_.constFind(QString::fromRawData(name.data(), name.size()));
        return found == index_.constEnd() ? std::nullopt : std::optional(*found);
    }
    for (std::size_t place = names_.size(); place-- > 0;)
        if (names_[place] == name && (gaps_.empty() || !gaps_[place]))
            return place;
    return std::nullopt;
}

void JsonNames::append(const QString& name)
{
    if (names_.empty())
        names_.reserve(usualNames);
    names_.push_back(name);
    if (!gaps_.empty())
        gaps_.push_back(false);
    if (!index_.isEmpty())
        index_.insert(name, names_.size() - 1);
    else if (names_.size() > fewNames)
        buildIndex();
}

void JsonNames::buildIndex()
{
    index_.reserve(qsizetype(names_.size()));
    for (std::size_t place = 0; place < names_.size(); ++place)
        if (gaps_.empty() || !gaps_[place])
            index_.insert(names_[place], place);
}

void JsonNames::giveUp(std::size_t place)
{
    gaps_.resize(names_.size());
    gaps_[place] = true;
    ++givenUp_;
    if (!index_.isEmpty())
        index_.remove(names_[place]);
}

void JsonNames::settle(std::vector<JsonValue>& values)
{
    if (givenUp_ == 0)
        return;
    std::size_t kept = 0;
    for (std::size_t place = 0; place < names_.size(); ++place)
        if (!gaps_[place]) {
            if (kept != place) {
                names_[kept] = std::move(names_[place]);
                values[kept] = std::move(values[place]);
            }
            ++kept;
        }
    names_.resize(kept);
    values.resize(kept);
    gaps_.clear();
    givenUp_ = 0;
    index_.clear();
    if (kept > fewNames)
        buildIndex();
}

bool JsonNames::startsLike(const JsonNames& other, std::size_t count) const
{
    return count <= size() &&
           std::equal(names_.begin(), names_.begin() + qsizetype(count), other.names_.begin());
}

std::shared_ptr<JsonNames> JsonNames::first(std::size_t count) const
{
    auto names = std::make_shared<JsonNames>();
    for (std::size_t place = 0; place < count; ++place)
        names->append(names_[place]);
    return names;
}

const std::vector<JsonValue>& JsonItems::values() const
{
    settle();
    return values_;
}

const JsonNames* JsonItems::names() const
{
    settle();
    return names_.get();
}

const JsonValue* JsonItems::find(QStringView name) const
{
    const auto place = names_ ? names_->find(name) : std::nullopt;
    return place ? &values_[*place] : nullptr;
}

void JsonItems::put(const QString& name, JsonValue value)
{
    if (const auto place = names_ ? names_->find(name) : std::nullopt) {
        if (*place + 1 == values_.size()) {
            values_.back() = std::move(value);
            return;
        }
        giveUp(*place);
    }
    ownNames().append(name);
    values_.push_back(std::move(value));
}

void JsonItems::removeAt(std::size_t position)
{
    settle();
    if (names_)
        giveUp(position);
    else
        values_.erase(values_.begin() + qsizetype(position));
}

void JsonItems::remove(QStringView name)
{
    if (const auto place = names_ ? names_->find(name) : std::nullopt)
        giveUp(*place);
}

void JsonItems::assign(std::vector<JsonValue> values, std::shared_ptr<JsonNames> names,
                       std::shared_ptr<const JsonTexts> texts)
{
    values_ = std::move(values);
    names_ = std::move(names);
    texts_ = std::move(texts);
}

std::vector<JsonValue> JsonItems::take()
{
    names_.reset();
    texts_.reset();
    return std::exchange(values_, {});
}

JsonNames& JsonItems::ownNames()
{
    if (!names_)
        names_ = std::make_shared<JsonNames>();
    else if (names_.use_count() > 1)
        names_ = names_->first(names_->size());
    return *names_;
}

void JsonItems::giveUp(std::size_t place)
{
    constexpr std::size_t bearable = 16;
    JsonNames& names = ownNames();
    names.giveUp(place);
    values_[place] = {};
    if (names.givenUp() > names.size() / 2 + bearable)
        names.settle(values_);
}

void JsonItems::settle() const
{
    if (names_)
        names_->settle(values_); // no one shares names with gaps
}
