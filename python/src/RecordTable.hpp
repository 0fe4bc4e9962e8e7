// Every record and `Partial` the Python module offers, with its field statements: the one
// list that both the bindings and the type stubs expand.
//
//   R(id, C++ type, "Owner", "Name", FIELDS)                   a record; `make` takes FIELDS
//   S(id, C++ type, Base, "Owner", "Name", OWN_FIELDS, MAKE)   a subclass; `make` takes MAKE
//   P(id, C++ type, "Owner", "Name", PARTIAL_FIELDS)           a decode-only Partial
//
// "Owner" is the Python class the class is nested in ("" for the module); owners and bases
// come first.
#pragma once

#include <orvane/orvane.hpp>

#define ORVANE_PY_RECORDS_VALUES_AND_STYLES(R, S, P)                                            \
  R(Color, ::orvane::Color, "", "Color", ORVANE_COLOR_FIELDS)                                   \
  S(ProjectColor, ::orvane::ProjectColor, ::orvane::Color, "", "ProjectColor",                  \
    ORVANE_PROJECT_COLOR_FIELDS, ORVANE_PROJECT_COLOR_MAKE)                                      \
  P(ProjectColorPartial, ::orvane::ProjectColor::Partial, "ProjectColor", "Partial",            \
    ORVANE_PROJECT_COLOR_PARTIAL_FIELDS)                                                        \
  R(TextStyle, ::orvane::TextStyle, "", "TextStyle", ORVANE_TEXT_STYLE_FIELDS)                  \
  S(ProjectTextStyle, ::orvane::ProjectTextStyle, ::orvane::TextStyle, "", "ProjectTextStyle",  \
    ORVANE_PROJECT_TEXT_STYLE_FIELDS, ORVANE_PROJECT_TEXT_STYLE_MAKE)                            \
  P(ProjectTextStylePartial, ::orvane::ProjectTextStyle::Partial, "ProjectTextStyle", "Partial", \
    ORVANE_PROJECT_TEXT_STYLE_PARTIAL_FIELDS)                                                   \
  R(RangedTextStyle, ::orvane::RangedTextStyle, "", "RangedTextStyle",                          \
    ORVANE_RANGED_TEXT_STYLE_FIELDS)                                                            \
  R(Fill, ::orvane::Fill, "", "Fill", ORVANE_FILL_FIELDS)                                       \
  R(Gradient, ::orvane::Gradient, "", "Gradient", ORVANE_GRADIENT_FIELDS)                       \
  R(GradientStop, ::orvane::Gradient::Stop, "Gradient", "Stop", ORVANE_GRADIENT_STOP_FIELDS)    \
  R(Border, ::orvane::Border, "", "Border", ORVANE_BORDER_FIELDS)                               \
  R(Shadow, ::orvane::Shadow, "", "Shadow", ORVANE_SHADOW_FIELDS)                               \
  R(Blur, ::orvane::Blur, "", "Blur", ORVANE_BLUR_FIELDS)

#define ORVANE_PY_RECORDS_SNAPSHOT(R, S, P)                                                     \
  R(Snapshot, ::orvane::Snapshot, "", "Snapshot", ORVANE_SNAPSHOT_FIELDS)                       \
  R(Grid, ::orvane::Grid, "", "Grid", ORVANE_GRID_FIELDS)                                       \
  R(GridVertical, ::orvane::Grid::Vertical, "Grid", "Vertical", ORVANE_GRID_VERTICAL_FIELDS)    \
  R(GridHorizontal, ::orvane::Grid::Horizontal, "Grid", "Horizontal",                           \
    ORVANE_GRID_HORIZONTAL_FIELDS)                                                              \
  R(Layer, ::orvane::Layer, "", "Layer", ORVANE_LAYER_FIELDS)                                   \
  R(Asset, ::orvane::Asset, "", "Asset", ORVANE_ASSET_FIELDS)                                   \
  R(AssetContent, ::orvane::Asset::Content, "Asset", "Content", ORVANE_ASSET_CONTENT_FIELDS)    \
  R(Link, ::orvane::Link, "", "Link", ORVANE_LINK_FIELDS)                                       \
  R(Destination, ::orvane::Destination, "", "Destination", ORVANE_DESTINATION_FIELDS)

#define ORVANE_PY_RECORDS_PROJECT(R, S, P)                                                      \
  R(Project, ::orvane::Project, "", "Project", ORVANE_PROJECT_FIELDS)                           \
  P(ProjectPartial, ::orvane::Project::Partial, "Project", "Partial",                           \
    ORVANE_PROJECT_PARTIAL_FIELDS)                                                              \
  R(Section, ::orvane::Section, "", "Section", ORVANE_SECTION_FIELDS)                           \
  P(SectionPartial, ::orvane::Section::Partial, "Section", "Partial",                           \
    ORVANE_SECTION_PARTIAL_FIELDS)                                                              \
  R(ComponentSection, ::orvane::ComponentSection, "", "ComponentSection",                       \
    ORVANE_COMPONENT_SECTION_FIELDS)                                                            \
  P(ComponentSectionPartial, ::orvane::ComponentSection::Partial, "ComponentSection", "Partial", \
    ORVANE_SECTION_PARTIAL_FIELDS)                                                              \
  R(VersionCollection, ::orvane::VersionCollection, "", "VersionCollection",                    \
    ORVANE_VERSION_COLLECTION_FIELDS)                                                           \
  S(Screen, ::orvane::Screen, ::orvane::VersionCollection, "", "Screen", ORVANE_SCREEN_FIELDS,  \
    ORVANE_SCREEN_MAKE)                                                                         \
  P(ScreenPartial, ::orvane::Screen::Partial, "Screen", "Partial",                              \
    ORVANE_VERSION_COLLECTION_PARTIAL_FIELDS)                                                   \
  S(Component, ::orvane::Component, ::orvane::VersionCollection, "", "Component",               \
    ORVANE_COMPONENT_FIELDS, ORVANE_COMPONENT_MAKE)                                             \
  P(ComponentPartial, ::orvane::Component::Partial, "Component", "Partial",                     \
    ORVANE_VERSION_COLLECTION_PARTIAL_FIELDS)                                                   \
  R(Version, ::orvane::Version, "", "Version", ORVANE_VERSION_FIELDS)                           \
  R(Commit, ::orvane::Commit, "", "Commit", ORVANE_COMMIT_FIELDS)                               \
  R(Dot, ::orvane::Dot, "", "Dot", ORVANE_DOT_FIELDS)                                           \
  P(DotPartial, ::orvane::Dot::Partial, "Dot", "Partial", ORVANE_DOT_PARTIAL_FIELDS)            \
  R(Comment, ::orvane::Comment, "", "Comment", ORVANE_COMMENT_FIELDS)                           \
  P(CommentPartial, ::orvane::Comment::Partial, "Comment", "Partial",                           \
    ORVANE_COMMENT_PARTIAL_FIELDS)

#define ORVANE_PY_RECORDS_PEOPLE_AND_INTEGRATIONS(R, S, P)                                      \
  R(User, ::orvane::User, "", "User", ORVANE_USER_FIELDS)                                       \
  P(UserPartial, ::orvane::User::Partial, "User", "Partial", ORVANE_USER_PARTIAL_FIELDS)        \
  R(ProjectUser, ::orvane::ProjectUser, "", "ProjectUser", ORVANE_PROJECT_USER_FIELDS)          \
  P(ProjectUserPartial, ::orvane::ProjectUser::Partial, "ProjectUser", "Partial",               \
    ORVANE_PROJECT_USER_PARTIAL_FIELDS)                                                         \
  R(Organization, ::orvane::Organization, "", "Organization", ORVANE_ORGANIZATION_FIELDS)       \
  P(OrganizationPartial, ::orvane::Organization::Partial, "Organization", "Partial",            \
    ORVANE_ORGANIZATION_PARTIAL_FIELDS)                                                         \
  R(Plan, ::orvane::Plan, "", "Plan", ORVANE_PLAN_FIELDS)                                       \
  R(Integration, ::orvane::Integration, "", "Integration", ORVANE_INTEGRATION_FIELDS)           \
  R(IntegrationSlack, ::orvane::Integration::Slack, "Integration", "Slack",                     \
    ORVANE_INTEGRATION_SLACK_FIELDS)                                                            \
  R(Extension, ::orvane::Extension, "", "Extension", ORVANE_EXTENSION_FIELDS)                   \
  R(ExtensionAuthor, ::orvane::Extension::Author, "Extension", "Author",                        \
    ORVANE_EXTENSION_AUTHOR_FIELDS)                                                             \
  R(ExtensionManifest, ::orvane::Extension::Manifest, "Extension", "Manifest",                  \
    ORVANE_EXTENSION_MANIFEST_FIELDS)                                                           \
  R(ExtensionOption, ::orvane::Extension::Option, "Extension", "Option",                        \
    ORVANE_EXTENSION_OPTION_FIELDS)
