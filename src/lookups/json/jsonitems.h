#pragma once

#include "lookups/json/jsonplaces.h"
#include "lookups/json/jsontexts.h"
#include "lookups/json/jsonvalue.h"

#include <QHash>
#include <QString>
#include <QStringView>
#include <memory>
#include <optional>
#include <vector>

/// The names of an object by their places, in the order of insertion. A name is found, moved to the end and
/// removed in the same time in a large object as in a small one.
class JsonNames
{
public:
    /// All places, those given up included.
    std::size_t size() const { return names_.size(); }
    const JsonPlaces& places() const { return places_; }
    const QString& at(std::size_t place) const { return names_[place]; }

    std::optional<std::size_t> find(QStringView name) const;
    /// The name is not among the others.
    void append(const QString& name);
    void giveUp(std::size_t place);
    /// Takes the gaps out of the names and of the values that stand at the same places.
    void settle(std::vector<JsonValue>& values);
    /// Whether the names of the first so many places, which `other` has, are the same here.
    bool startsLike(const JsonNames& other, std::size_t count) const;
    /// The names of the first so many places, none of them given up.
    std::shared_ptr<JsonNames> first(std::size_t count) const;

private:
    void buildIndex();

    std::vector<QString> names_;
    JsonPlaces places_;
    QHash<QString, std::size_t> index_; ///< of the names at places that are taken
    bool hasIndex_ = false;             ///< not while there are few names
};

/// The ordered values of an array, or of an object with their names. Positions are from 0.
class JsonItems
{
public:
    std::size_t count() const { return values_.size() - (places() ? places()->givenUp() : 0); }

    /// The value at a position below count(), and its name in an object.
    const JsonValue& at(std::size_t position) const { return values_[placeOf(position)]; }
    const QString& nameAt(std::size_t position) const { return names_->at(placeOf(position)); }
    /// All values in order, and their names at the same places: null for an array.
    const std::vector<JsonValue>& values() const;
    const JsonNames* names() const;
    /// Null where no item has the name.
    const JsonValue* find(QStringView name) const;

    void append(JsonValue value);
    void replace(std::size_t position, JsonValue value) { values_[placeOf(position)] = std::move(value); }
    /// Adds the item at the end; one of the same name goes.
    void put(const QString& name, JsonValue value);
    void removeAt(std::size_t position) { giveUp(placeOf(position)); }
    void remove(QStringView name);

    /// Takes over values, with their names if they are an object's, and holds on to what keeps their texts.
    void assign(std::vector<JsonValue> values, std::shared_ptr<JsonNames> names,
                std::shared_ptr<const JsonTexts> texts);
    /// Leaves none and gives the values; their texts may be gone.
    std::vector<JsonValue> take();

private:
    /// Null where no place is given up.
    const JsonPlaces* places() const { return names_ ? &names_->places() : places_.get(); }
    std::size_t placeOf(std::size_t position) const { return places() ? places()->at(position) : position; }
    JsonNames& ownNames();
    void giveUp(std::size_t place);
    void settle() const;

    mutable std::vector<JsonValue> values_;
    /// Shared by the objects of a document that have the same names, and then without gaps.
    mutable std::shared_ptr<JsonNames> names_;
    mutable std::unique_ptr<JsonPlaces> places_; ///< of an array that has gaps
    std::shared_ptr<const JsonTexts> texts_;
};
