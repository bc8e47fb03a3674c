#include "lookups/json/jsonreader.h"

#include "lookups/json/jsonbag.h"
#include "platform/values/error.h"

#include <algorithm>

/// The object under way. As long as its names are those of an earlier object, `known` is that one's names and
/// `own` is empty.
struct JsonReader::Object
{
    std::shared_ptr<JsonNames> known;
    std::size_t followed = 0; ///< so many names of `known` have come
    std::shared_ptr<JsonNames> own;
    std::size_t start; ///< place in pending_ of the object's first value
};

void JsonReader::read(JsonBag& bag)
{
    in_.skipBlanks();
    if (in_.current() != u'{' && in_.current() != u'[')
        in_.failHere(13, "Expected either { or [ at character ");
    container(bag);
}

void JsonReader::container(JsonBag& bag)
{
    if (depth_ == JsonBag::deepest)
        in_.failHere(28, "Nested too deep at character ");
    if (lastAtDepth_.size() == std::size_t(depth_))
        lastAtDepth_.emplace_back();
    bag.isArray_ = in_.current() == u'[';
    in_.pass();
    Object object{lastAtDepth_[std::size_t(depth_)], 0, nullptr, pending_.size()};
    ++depth_;
    try {
        if (bag.isArray_)
            arrayItems();
        else
            objectItems(object);
    } catch (const RuntimeError&) {
        // The outermost keeps what it has so far; another one is dropped with it.
        --depth_;
        if (depth_ == 0)
            finish(bag, object);
        else
            pending_.resize(object.start);
        throw;
    }
    --depth_;
    finish(bag, object);
}

void JsonReader::finish(JsonBag& bag, Object& object)
{
    const auto first = pending_.begin() + qsizetype(object.start);
    std::vector<JsonValue> values(std::make_move_iterator(first), std::make_move_iterator(pending_.end()));
    pending_.erase(first, pending_.end());

    if (!object.own && object.followed > 0 && object.followed < object.known->size())
        object.own = object.known->first(object.followed);
    if (object.own) {
        object.own->settle(values);
        remember(object.own);
    }
    bag.items_.assign(std::move(values),
                      object.own            ? object.own
                      : object.followed > 0 ? object.known
                                            : nullptr,
                      texts_);
    if (object.followed > 0 && !object.own)
        lastAtDepth_[std::size_t(depth_)] = std::move(object.known);
}

void JsonReader::arrayItems()
{
    while (true) {
        in_.skipBlanks();
        if (in_.current() == u',') {
            in_.pass();
        } else if (in_.current() == u']') {
            in_.pass();
            return;
        } else {
            pending_.push_back(value());
        }
    }
}

void JsonReader::objectItems(Object& object)
{
    bool hasItems = false;
    while (true) {
        in_.skipBlanks();
        switch (in_.current()) {
        case u'"':
            in_.pass();
            item(object);
            hasItems = true;
            break;
        case u',':
            if (!hasItems)
                in_.failHere(13, "Found \",\" before first item at character ");
            in_.pass();
            break;
        case u'}':
            in_.pass();
            return;
        default:
            in_.failHere(13, "Expected , or } at character ");
        }
    }
}

void JsonReader::item(Object& object)
{
    const bool known = isKnownName(object);
    const QString name = known ? QString() : sharedName(in_.text());
    in_.skipBlanks();
    if (in_.current() != u':')
        in_.failHere(13, "Expected : at character ");
    in_.pass();
    JsonValue read = value();
    // Only now: an item that fails leaves the earlier one of its name where it is.
    if (known)
        ++object.followed;
    else
        addName(object, name);
    pending_.push_back(std::move(read));
}

/// Whether the next name of an earlier object stands at the cursor, which then passes it. That object has
/// all names of this one in front of it.
bool JsonReader::isKnownName(Object& object)
{
    if (object.own)
        return false;
    const std::size_t place = object.followed;
    const auto comes = [&](const std::shared_ptr<JsonNames>& names) {
        return names && place < names->size() && in_.passText(names->at(place));
    };
    if (comes(object.known))
        return true;
    const auto other = std::find_if(recent_.begin(), recent_.end(), [&](const auto& names) {
        return names && (place == 0 || names->startsLike(*object.known, place)) && comes(names);
    });
    if (other == recent_.end())
        return false;
    object.known = *other;
    return true;
}

void JsonReader::addName(Object& object, const QString& name)
{
    if (!object.own)
        object.own =
            object.followed > 0 ? object.known->first(object.followed) : std::make_shared<JsonNames>();
    if (const auto place = object.own->find(name)) {
        object.own->giveUp(*place);
        pending_[object.start + *place] = {};
    }
    object.own->append(name);
}

/// Names that stand in the text as they are, without an escape, are what later names are compared with.
void JsonReader::remember(const std::shared_ptr<JsonNames>& names)
{
    for (std::size_t place = 0; place < names->size(); ++place)
        if (!JsonScanner::isPlain(names->at(place)))
            return;
    recent_[nextRecent_++ % recent_.size()] = names;
    lastAtDepth_[std::size_t(depth_)] = names;
}

JsonValue JsonReader::value()
{
    in_.skipBlanks();
    const char16_t c = in_.current();
    if (c == u'"') {
        in_.pass();
        return JsonValue::keptText(texts_->keep(in_.text()));
    }
    if (c == u'{' || c == u'[') {
        auto bag = std::make_shared<JsonBag>();
        bag->decimalMode_ = decimals_;
        container(*bag);
        return bag;
    }
    return c == u'-' || (c >= u'0' && c <= u'9') ? in_.number(decimals_) : in_.word();
}

/// The name as a text that is shared with earlier ones, as far as they are remembered.
QString JsonReader::sharedName(QStringView name)
{
    if (name.isEmpty())
        return {};
    const auto look = std::size_t(name.size()) * 31 + name.front().unicode() * 7u + name.back().unicode();
    QString& known = names_[look % names_.size()];
    if (known != name)
        known = name.toString();
    return known;
}
