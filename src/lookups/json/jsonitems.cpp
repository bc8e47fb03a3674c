#include "lookups/json/jsonitems.h"

namespace {

/// Up to so many names are looked through one by one.
constexpr std::size_t fewNames = 12;
constexpr std::size_t usualNames = 8;

} // namespace

std::optional<std::size_t> JsonNames::find(QStringView name) const
{
    if (hasIndex_) {
        const auto found = index_.constFind(QString::fromRawData(name.data(), name.size()));
        return found == index_.constEnd() ? std::nullopt : std::optional(*found);
    }
    for (std::size_t place = names_.size(); place-- > 0;)
        if (names_[place] == name && places_.isTaken(place))
            return place;
    return std::nullopt;
}

void JsonNames::append(const QString& name)
{
    if (names_.empty())
        names_.reserve(usualNames);
    names_.push_back(name);
    places_.append();
    if (hasIndex_)
        index_.insert(name, names_.size() - 1);
    else if (names_.size() > fewNames)
        buildIndex();
}

void JsonNames::buildIndex()
{
    hasIndex_ = true;
    index_.reserve(qsizetype(names_.size()));
    for (std::size_t place = 0; place < names_.size(); ++place)
        if (places_.isTaken(place))
            index_.insert(names_[place], place);
}

void JsonNames::giveUp(std::size_t place)
{
    places_.giveUp(place, names_.size());
    if (hasIndex_)
        index_.remove(names_[place]);
}

void JsonNames::settle(std::vector<JsonValue>& values)
{
    if (places_.givenUp() == 0)
        return;
    places_.closeUp(names_);
    places_.closeUp(values);
    places_.close();
    index_.clear();
    hasIndex_ = false;
    if (names_.size() > fewNames)
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

void JsonItems::append(JsonValue value)
{
    values_.push_back(std::move(value));
    if (places_)
        places_->append();
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
    places_.reset();
    texts_ = std::move(texts);
}

std::vector<JsonValue> JsonItems::take()
{
    names_.reset();
    places_.reset();
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
    values_[place] = {};
    if (names_) {
        ownNames().giveUp(place);
    } else {
        if (!places_)
            places_ = std::make_unique<JsonPlaces>();
        places_->giveUp(place, values_.size());
    }
    if (places()->isSparse(values_.size()))
        settle();
}

void JsonItems::settle() const
{
    if (names_) {
        names_->settle(values_); // no one shares names with gaps
    } else if (places_) {
        places_->closeUp(values_);
        places_.reset();
    }
}
