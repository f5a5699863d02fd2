#include "published_lists.h"

namespace vellum {
namespace {

// The words of a text, with the attributes that "@text" stands for in its place.
QStringList Words(const QString& text, const QMap<QString, QStringList>& groups) {
    QStringList words;
    for (const QString& word : text.split(' ', Qt::SkipEmptyParts))
        words << (word.startsWith('@') ? groups.value(word, {"?"}) : QStringList(word));
    return words;
}

}  // namespace

QMap<QString, ListedElement> ElementsOf(const PublishedList& list) {
    QMap<QString, ListedElement> elements;
    QMap<QString, QStringList> groups;
    const QString text = QString(list.list).replace("\n    ", " ");
    for (const QString& line : text.split('\n', Qt::SkipEmptyParts)) {
        const bool isGroup = line.startsWith('@');
        const QString mark = isGroup ? " = " : ": ";
        const QStringList words = Words((line + ' ').section(mark, 1), groups);
        if (isGroup) {
            groups[line.section(mark, 0, 0)] = words;
            continue;
        }
        const QString names = line.contains(':') ? (line + ' ').section(mark, 0, 0) : "?";
        for (QString name : names.split(' ')) {
            const bool empty = name.endsWith('/');
            if (empty) name.chop(1);
            elements[name] = {empty, words};
        }
    }
    return elements;
}

const PublishedList openEbookDocument{"oebdoc1.dtd",
                                      "!DOCTYPE html\r\n"
                                      "    PUBLIC \"+//ISBN 0-9673008-1-9//DTD OEB 1.0 Document//EN\"\r\n"
                                      "    \"http://openebook.org/dtds/oeb-1.0/oebdoc1.dtd\"",
                                      R"(
@text = id class style title xml:lang
@box = align border height width hspace vspace usemap
@cell = abbr align bgcolor colspan height nowrap rowspan valign width

html: xml:lang xmlns
head title: xml:lang
base/: href
meta/: name http-equiv content scheme xml:lang
link/: href media rel rev type @text
style: type media title xml:lang xml:space
script: type src xml:space
body: bgcolor text @text

h1 h2 h3 h4 h5 h6 p div: align @text
center: @text
blockquote: cite @text
pre: xml:space @text
hr/: align noshade size width @text
ul: type @text
ol: start type @text
li: type value @text
dl dt dd: @text

table: align bgcolor border cellpadding cellspacing summary width @text
caption: align @text
tr: align bgcolor valign @text
th td: @cell @text

a: href name rel rev @text
img/: alt longdesc src @box @text
map: name @text
area/: alt coords href nohref shape @text
object: archive classid codebase codetype data type @box @text
param/: id name type value valuetype
br/: clear @text

em strong dfn code samp kbd var cite sub sup span: @text
tt i b big small u s strike: @text
q: cite @text
font: color face size @text
)"};

const PublishedList openEbookPackage{"oebpkg1.dtd",
                                     "!DOCTYPE package\r\n"
                                     "    PUBLIC \"+//ISBN 0-9673008-1-9//DTD OEB 1.0 Package//EN\"\r\n"
                                     "    \"http://openebook.org/dtds/oeb-1.0/oebpkg1.dtd\"",
                                     R"(
@common = id xml:lang
@dc = id xml:lang xmlns:dc

package: unique-identifier xmlns @common
metadata:
dc-metadata: xmlns:oebpackage @dc
dc:Title dc:Subject dc:Description dc:Publisher dc:Type dc:Format dc:Source dc:Language: @dc
dc:Relation dc:Coverage dc:Rights: @dc
dc:Creator dc:Contributor: role file-as @dc
dc:Date: event @dc
dc:Identifier: scheme @dc
x-metadata: @common
meta/: name content scheme @common

manifest spine tours guide: @common
item/: href media-type fallback @common
itemref/: idref @common
tour: title @common
site/: href title @common
reference/: type title href @common
)"};

const PublishedList wirelessMarkup{"wml13.dtd",
                                   "!DOCTYPE wml\r\n"
                                   "    PUBLIC \"-//WAPFORUM//DTD WML\r\n            1.3//EN\"\r\n"
                                   "    \"http://www.wapforum.org/DTD/wml13.dtd\"",
                                   R"(
@core = id class
@text = id class xml:lang
@event = onenterforward onenterbackward ontimer

wml: @text
head: @core
access/: domain path @core
meta/: http-equiv name forua content scheme @core
template: @event @core
card: title newcontext ordered @event @text

do: type label name optional @text
onevent: type @core
timer/: name value @core
go: href sendreferer method enctype cache-control accept-charset @core
prev: @core
refresh: @core
noop/: @core
postfield/: name value @core
setvar/: name value @core

input/: name type value format emptyok size maxlength tabindex title accesskey @text
select: title name value iname ivalue multiple tabindex @text
optgroup: title @text
option: value title onpick @text
fieldset: title @text

p: align mode @text
pre: xml:space @core
br/: @text
em strong b i u big small: @text

a: href title accesskey @text
anchor: title accesskey @text
img/: alt src localsrc vspace hspace align height width @text
table: title align columns @text
tr: @core
td: @text
)"};

const PublishedList extensible3d{"x3d-compromise.dtd",
                                 "!DOCTYPE X3D\r\n"
                                 "    PUBLIC \"ISO//Web3D//DTD X3D\r\n            3.0//EN\"\r\n"
                                 "    \"http://www.web3d.org/specifications/x3d-3.0.dtd\"",
                                 R"(
@node = DEF USE class containerField
@box = bboxCenter bboxSize
@place = center rotation scale scaleOrientation translation
@run = loop pauseTime resumeTime startTime stopTime
@light = ambientIntensity color intensity on
@surface = ccw colorPerVertex normalPerVertex solid
@sky = groundAngle groundColor skyAngle skyColor
@spline = uDimension uKnot uOrder vDimension vKnot vOrder weight
@patch = @spline solid uClosed uTessellation vClosed vTessellation
@line = address applicationID entityID multicastRelayHost multicastRelayPort networkMode port readInterval
    rtpHeaderExpected siteID writeInterval
@radio = enabled @line radioID whichGeometry

X3D: profile version xmlns:xsd xsd:noNamespaceSchemaLocation
head Scene ProtoInterface ProtoBody IS:
component/: name level
meta/: name content http-equiv scheme lang dir
ROUTE/: fromNode fromField toNode toField
EXPORT/: localDEF AS
IMPORT/: inlineDEF importedDEF AS
ProtoDeclare: name appinfo documentation
ExternProtoDeclare: name url appinfo documentation
ProtoInstance: name @node
field: name accessType type value appinfo documentation
fieldValue: name value
connect/: nodeField protoField
Script: @node directOutput mustEvaluate url
MetadataSet: @node name reference

MetadataDouble: @node name reference value
MetadataFloat: @node name reference value
MetadataInteger: @node name reference value
MetadataString: @node name reference value
WorldInfo: @node info title
Group: @node @box
StaticGroup: @node @box
Transform: @node @box @place
Switch: @node @box whichChoice
Billboard: @node @box axisOfRotation
Collision: @node @box enabled
LOD: @node @box center range
Anchor: @node @box description parameter url
Inline: @node @box load url
LoadSensor: @node enabled timeOut
Shape: @node @box
Appearance: @node
Material: @node ambientIntensity diffuseColor emissiveColor shininess specularColor transparency
FillProperties: @node filled hatchColor hatchStyle hatched
LineProperties: @node applied linetype linewidthScaleFactor
Box: @node size solid
Cone: @node bottom bottomRadius height side solid
Cylinder: @node bottom height radius side solid top
Sphere: @node radius solid
Extrusion: @node beginCap ccw convex creaseAngle crossSection endCap orientation scale solid spine
ElevationGrid: @node @surface creaseAngle height xDimension xSpacing zDimension zSpacing
IndexedFaceSet: @node @surface colorIndex convex coordIndex creaseAngle normalIndex texCoordIndex
Arc2D: @node endAngle radius startAngle
ArcClose2D: @node closureType endAngle radius solid startAngle
Circle2D: @node radius
Disk2D: @node innerRadius outerRadius solid
Polyline2D: @node lineSegments
Polypoint2D: @node point
Rectangle2D: @node size solid
TriangleSet2D: @node solid vertices
TriangleSet: @node @surface
TriangleFanSet: @node @surface fanCount
TriangleStripSet: @node @surface stripCount
IndexedTriangleSet: @node @surface index
IndexedTriangleFanSet: @node @surface index
IndexedTriangleStripSet: @node @surface index
LineSet: @node vertexCount
IndexedLineSet: @node colorIndex colorPerVertex coordIndex
PointSet: @node
Coordinate: @node point
CoordinateDouble: @node point
Normal: @node vector
Color: @node color
ColorRGBA: @node color
Text: @node length maxExtent solid string
FontStyle: @node family horizontal justify language leftToRight size spacing style topToBottom
ImageTexture: @node repeatS repeatT url
PixelTexture: @node repeatS repeatT image
MovieTexture: @node repeatS repeatT @run description speed url
MultiTexture: @node alpha color function mode source
TextureCoordinate: @node point
TextureCoordinateGenerator: @node mode parameter
MultiTextureCoordinate: @node
TextureTransform: @node center rotation scale translation
MultiTextureTransform: @node
DirectionalLight: @node @light direction
PointLight: @node @light attenuation location radius
SpotLight: @node @light attenuation beamWidth cutOffAngle direction location radius
Background: @node @sky backUrl bottomUrl frontUrl leftUrl rightUrl topUrl
TextureBackground: @node @sky transparency
Fog: @node color fogType visibilityRange
Sound: @node direction intensity location maxBack maxFront minBack minFront priority spatialize
AudioClip: @node @run description pitch url
Viewpoint: @node centerOfRotation description fieldOfView jump orientation position
NavigationInfo: @node avatarSize headlight speed transitionType type visibilityLimit
TimeSensor: @node enabled @run cycleInterval
TouchSensor: @node enabled description
PlaneSensor: @node enabled description autoOffset maxPosition minPosition offset
CylinderSensor: @node enabled description autoOffset diskAngle maxAngle minAngle offset
SphereSensor: @node enabled description autoOffset offset
KeySensor: @node enabled
StringSensor: @node enabled deletionAllowed
ProximitySensor: @node enabled center size
VisibilitySensor: @node enabled center size
ColorInterpolator: @node key keyValue
CoordinateInterpolator: @node key keyValue
CoordinateInterpolator2D: @node key keyValue
NormalInterpolator: @node key keyValue
OrientationInterpolator: @node key keyValue
PositionInterpolator: @node key keyValue
PositionInterpolator2D: @node key keyValue
ScalarInterpolator: @node key keyValue
BooleanFilter: @node
BooleanSequencer: @node key keyValue
BooleanToggle: @node toggle
BooleanTrigger: @node
IntegerSequencer: @node key keyValue
IntegerTrigger: @node integerKey
TimeTrigger: @node
GeoOrigin: @node geoSystem geoCoords rotateYUp
GeoCoordinate: @node geoSystem point
GeoElevationGrid: @node @surface geoSystem creaseAngle geoGridOrigin height xDimension xSpacing yScale
    zDimension zSpacing
GeoLocation: @node @box geoSystem geoCoords
GeoLOD: @node @box geoSystem center child1Url child2Url child3Url child4Url range rootUrl
GeoMetadata: @node summary url
GeoPositionInterpolator: @node geoSystem key keyValue
GeoTouchSensor: @node enabled description geoSystem
GeoViewpoint: @node geoSystem description fieldOfView headlight jump navType orientation position speedFactor
HAnimHumanoid: @node @box @place info name version
HAnimJoint: @node @box @place limitOrientation llimit name skinCoordIndex skinCoordWeight stiffness ulimit
HAnimSegment: @node @box centerOfMass mass momentsOfInertia name
HAnimSite: @node @box @place name
HAnimDisplacer: @node coordIndex displacements name weight
NurbsCurve: @node closed knot order tessellation weight
NurbsCurve2D: @node closed controlPoint knot order tessellation weight
ContourPolyline2D: @node controlPoint
Contour2D: @node
NurbsPatchSurface: @node @patch
NurbsTrimmedSurface: @node @patch
NurbsSweptSurface: @node ccw solid
NurbsSwungSurface: @node ccw solid
NurbsSet: @node @box tessellationScale
NurbsTextureCoordinate: @node @spline controlPoint
NurbsOrientationInterpolator: @node knot order weight
NurbsPositionInterpolator: @node knot order weight
NurbsSurfaceInterpolator: @node @spline
EspduTransform: @node @box @place enabled @line articulationParameterArray
    articulationParameterChangeIndicatorArray articulationParameterCount articulationParameterDesignatorArray
    articulationParameterIdPartAttachedToArray articulationParameterTypeArray collisionType deadReckoning
    detonationLocation detonationRelativeLocation detonationResult entityCategory entityCountry entityDomain
    entityExtra entityKind entitySpecific entitySubcategory eventApplicationID eventEntityID eventNumber
    eventSiteID fireMissionIndex fired1 fired2 firingRange firingRate forceID fuse linearAcceleration
    linearVelocity marking munitionApplicationID munitionEndPoint munitionEntityID munitionQuantity
    munitionSiteID munitionStartPoint warhead
ReceiverPdu: @node @box @radio receivedPower receiverState transmitterApplicationID transmitterEntityID
    transmitterRadioID transmitterSiteID
SignalPdu: @node @box @radio data dataLength encodingScheme sampleRate samples tdlType
TransmitterPdu: @node @box @radio antennaLocation antennaPatternLength antennaPatternType cryptoKeyID
    cryptoSystem frequency inputSource lengthOfModulationParameters modulationTypeDetail modulationTypeMajor
    modulationTypeSpreadSpectrum modulationTypeSystem power radioEntityTypeCategory radioEntityTypeCountry
    radioEntityTypeDomain radioEntityTypeKind radioEntityTypeNomenclature radioEntityTypeNomenclatureVersion
    relativeAntennaLocation transmitFrequencyBandwidth transmitState
)"};

}  // namespace vellum
