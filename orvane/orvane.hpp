// Everything the library offers, in one include.
#pragma once

#include <orvane/coding/Coding.hpp>
#include <orvane/coding/CodingError.hpp>
#include <orvane/coding/Decoder.hpp>
#include <orvane/coding/Encoder.hpp>
#include <orvane/coding/FieldVisitor.hpp>
#include <orvane/coding/RawEnum.hpp>
#include <orvane/coding/RecordArena.hpp>
#include <orvane/coding/Ref.hpp>
#include <orvane/coding/Schema.hpp>
#include <orvane/coding/SingleValueCodable.hpp>
#include <orvane/coding/UserInfo.hpp>
#include <orvane/integrations/Extension+Manifest.hpp>
#include <orvane/integrations/Extension+Option.hpp>
#include <orvane/integrations/Extension.hpp>
#include <orvane/integrations/Integration.hpp>
#include <orvane/people/Organization.hpp>
#include <orvane/people/Plan.hpp>
#include <orvane/people/ProjectUser.hpp>
#include <orvane/people/User+Partial.hpp>
#include <orvane/people/User.hpp>
#include <orvane/project/Comment.hpp>
#include <orvane/project/Commit.hpp>
#include <orvane/project/Component.hpp>
#include <orvane/project/ComponentSection.hpp>
#include <orvane/project/Dot+Partial.hpp>
#include <orvane/project/Dot.hpp>
#include <orvane/project/Project.hpp>
#include <orvane/project/Screen.hpp>
#include <orvane/project/Section.hpp>
#include <orvane/project/Version.hpp>
#include <orvane/project/VersionCollection.hpp>
#include <orvane/snapshot/Asset+Content.hpp>
#include <orvane/snapshot/Asset.hpp>
#include <orvane/snapshot/Destination.hpp>
#include <orvane/snapshot/Grid.hpp>
#include <orvane/snapshot/Layer.hpp>
#include <orvane/snapshot/Link.hpp>
#include <orvane/snapshot/Snapshot.hpp>
#include <orvane/styles/Blur.hpp>
#include <orvane/styles/Border.hpp>
#include <orvane/styles/Fill.hpp>
#include <orvane/styles/Gradient+Stop.hpp>
#include <orvane/styles/Gradient.hpp>
#include <orvane/styles/ProjectColor.hpp>
#include <orvane/styles/ProjectTextStyle.hpp>
#include <orvane/styles/RangedTextStyle.hpp>
#include <orvane/styles/Shadow.hpp>
#include <orvane/styles/TextStyle.hpp>
#include <orvane/values/BlendMode.hpp>
#include <orvane/values/CanonicalText.hpp>
#include <orvane/values/Color.hpp>
#include <orvane/values/Date.hpp>
#include <orvane/values/Density.hpp>
#include <orvane/values/Geometry.hpp>
#include <orvane/values/Identifier.hpp>
#include <orvane/values/Url.hpp>
#include <orvane/version.hpp>

/// \namespace orvane
/// The records of the object model, the keyed coding they are written against, and the JSON
/// coder. Nothing in it keeps global state but the import-source key.
