"""COLLADA meshes made of triangles, one lambert colour per part: the writer shared by the mesh scripts."""


def box(x0, y0, z0, x1, y1, z1):
    """Corners and outward triangles of an axis-aligned box."""
    corners = [(x, y, z) for z in (z0, z1) for y in (y0, y1) for x in (x0, x1)]
    quads = [(0, 2, 3, 1), (4, 5, 7, 6), (0, 1, 5, 4), (2, 6, 7, 3), (0, 4, 6, 2), (1, 3, 7, 5)]
    triangles = []
    for a, b, c, d in quads:
        triangles += [(a, b, c), (a, c, d)]
    return corners, triangles


def geometry(name, parts):
    points, indices = [], []
    for corners, triangles in parts:
        base = len(points)
        points += corners
        indices += [tuple(base + i for i in t) for t in triangles]
    positions = " ".join("%g %g %g" % p for p in points)
    primitive = " ".join("%d %d %d" % t for t in indices)
    return f"""    <geometry id="{name}-mesh" name="{name}">
      <mesh>
        <source id="{name}-positions">
          <float_array id="{name}-positions-array" count="{3 * len(points)}">{positions}</float_array>
          <technique_common>
            <accessor source="#{name}-positions-array" count="{len(points)}" stride="3">
              <param name="X" type="float"/><param name="Y" type="float"/><param name="Z" type="float"/>
            </accessor>
          </technique_common>
        </source>
        <vertices id="{name}-vertices"><input semantic="POSITION" source="#{name}-positions"/></vertices>
        <triangles material="{name}-material" count="{len(indices)}">
          <input semantic="VERTEX" source="#{name}-vertices" offset="0"/>
          <p>{primitive}</p>
        </triangles>
      </mesh>
    </geometry>
"""


def effect(name, colour):
    return f"""    <effect id="{name}-effect">
      <profile_COMMON><technique sid="common"><lambert>
        <diffuse><color>{colour[0]} {colour[1]} {colour[2]} 1</color></diffuse>
      </lambert></technique></profile_COMMON>
    </effect>
"""


def document(parts):
    """A whole file: parts maps a part name to (list of (corners, triangles), colour)."""
    effects = "".join(effect(name, c) for name, (_, c) in parts.items())
    materials = "".join(
        f'    <material id="{name}-material"><instance_effect url="#{name}-effect"/></material>\n' for name in parts)
    geometries = "".join(geometry(name, shapes) for name, (shapes, _) in parts.items())
    nodes = "".join(
        f"""      <node id="{name}" name="{name}">
        <instance_geometry url="#{name}-mesh">
          <bind_material><technique_common>
            <instance_material symbol="{name}-material" target="#{name}-material"/>
          </technique_common></bind_material>
        </instance_geometry>
      </node>
""" for name in parts)
    return f"""<?xml version="1.0" encoding="utf-8"?>
<COLLADA xmlns="http://www.collada.org/2005/11/COLLADASchema" version="1.4.1">
  <asset><unit name="meter" meter="1"/><up_axis>Z_UP</up_axis></asset>
  <library_effects>
{effects}  </library_effects>
  <library_materials>
{materials}  </library_materials>
  <library_geometries>
{geometries}  </library_geometries>
  <library_visual_scenes>
    <visual_scene id="Scene" name="Scene">
{nodes}    </visual_scene>
  </library_visual_scenes>
  <scene><instance_visual_scene url="#Scene"/></scene>
</COLLADA>
"""
