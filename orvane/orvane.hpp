// Everything the library offers, in one include.
#pragma once

#include <orvane/coding/CodingError.hpp>
#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Density.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/Geometry.hpp>
#include <orvane/coding/Identifier.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/coding/SingleValueCodable.hpp>
#include <orvane/coding/UserInfo.hpp>
#include <orvane/coding/Values.hpp>
#include <orvane/people/User+Partial.hpp>
#include <orvane/people/User.hpp>
#include <orvane/snapshot/Asset+Content.hpp>
#include <orvane/snapshot/Asset.hpp>
#include <orvane/snapshot/Destination.hpp>
#include <orvane/snapshot/Grid.hpp>
#include <orvane/snapshot/Link.hpp>
