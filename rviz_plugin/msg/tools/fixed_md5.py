"""Message sums that are announced as given instead of being computed.

The definition files of these types on the car also hold constants and field names that this
workspace does not carry, so the sum computed from our files would differ from the one the car
announces. Every other type keeps the sum computed by the ROS rule.
"""
import genmsg
import genmsg.gentools

FIXED_MD5SUMS = {
    'custom/ObjectArray': '27b138f31833a825d2e198eafec509a8',
    'custom/ImageRectangleArray': '0532f706473197e274c8271711931c65',
    'custom/ImageLineArray': '55c69ba3348556c7884184e2f735436c',
    'custom/RadarDetectArray': '3df9c95584fd2cd98e06b68a15ada631',
    'custom/RadarTrackArray': '1fba085dd238b075a556c27ce75cb622',
    'custom/VehicleStatus': 'cd72044da5d3922a6382bcc931b7fa87',
    'custom/KeyObject': 'c8a8fd2e4fae6fed5441e0d62bbc2b33',
    'custom/NavigationStatus': '1efd3477fc860c1b21b9cd2574a233fc',
    'custom/LocationStatus': '6027c23e30fe4cb75f42ba2bd4480f27',
    'custom/TrafficInfo': '26af0a6ec4402e271bf0fbb40e8c7001',
    'custom/RoadInfo': 'dadbb6de10a189412ce41dbdb52dec0f',
    'orsa_msgs/ImageFreespace': '0251e815489ce108cdc75120e38136d2',
    'orsa_msgs/SemanticSegmentation': 'a13d3c64672d7e36aa2bc492828cd6fa',
    'orsa_msgs/StereoFreespace': '19308269f1701845e5fb79d528ab9108',
    'orsa_msgs/StereoTrafficLightArray': '7db0c97a1ccefa8361f413a685df9726',
}

_computed_md5 = genmsg.gentools.compute_md5


def _md5(msg_context, message_spec):
    fixed = FIXED_MD5SUMS.get(getattr(message_spec, "full_name", None))
    return fixed if fixed is not None else _computed_md5(msg_context, message_spec)


def install():
    """Makes every generator that asks genmsg for a sum get the fixed ones."""
    genmsg.gentools.compute_md5 = _md5
    genmsg.compute_md5 = _md5
