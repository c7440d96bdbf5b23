# SPDX-License-Identifier: GPL-3.0-or-later
"""How good a result is: likeness to its source, and the size that another encoder would need for the same likeness."""
import json
import math
import subprocess

MATRICES = {"bt709": "bt709", "bt470bg": "bt601", "smpte170m": "bt601"}
DEEP = "yuv420p10"  # so that no reference favours whoever rounds to eight bits as it does
SECONDS_OF_GRACE = 0.004  # less than half a frame; times are rounded differently in every container
MOST_STEPS = 8
CRF_STEP = 2


def _video(path):
    told = subprocess.run(["ffprobe", "-v", "error", "-select_streams", "v:0", "-count_packets", "-of", "json",
                           "-show_streams", path], check=True, capture_output=True).stdout
    return json.loads(told)["streams"][0]


def ssim(result, source):
    """Mean likeness of luma, 0 to 1, of every frame of the result to the source's frame of that time, scaled with lanczos."""
    ours, reference = _video(result), _video(source)
    adapted = "out_range=tv"
    spaces = [MATRICES.get(each.get("color_space")) for each in (ours, reference)]
    if all(spaces) and spaces[0] != spaces[1]:
        adapted += f":in_color_matrix={spaces[0]}:out_color_matrix={spaces[1]}"
    graph = (f"[0:v:0]scale={adapted},format={DEEP},setpts=PTS-STARTPTS+{SECONDS_OF_GRACE}/TB[result];"
             f"[1:v:0]scale={ours['width']}:{ours['height']}:flags=lanczos+accurate_rnd:out_range=tv,format={DEEP},"
             "setpts=PTS-STARTPTS[reference];[result][reference]ssim=shortest=1:stats_file=-")
    told = subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-i", result, "-i", source, "-filter_complex", graph,
                           "-an", "-f", "null", "-"], check=True, capture_output=True, text=True).stdout
    values = [float(word[2:]) for line in told.splitlines() for word in line.split() if word.startswith("Y:")]
    if len(values) < 0.95 * int(ours["nb_read_packets"]):
        raise SystemExit(f"only {len(values)} frames of {result} have a counterpart in {source}")
    return sum(values) / len(values)


def alike(result, reference):
    """Mean likeness of luma of two results of one size, frame by frame, and how far their mean luma lies apart, of 255."""
    graph = "[0:v:0]setpts=N,format=yuv420p[a];[1:v:0]setpts=N,format=yuv420p[b];[a][b]ssim=shortest=1:stats_file=-"
    told = subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-i", result, "-i", reference, "-filter_complex", graph,
                           "-an", "-f", "null", "-"], check=True, capture_output=True, text=True).stdout
    values = [float(word[2:]) for line in told.splitlines() for word in line.split() if word.startswith("Y:")]
    return sum(values) / len(values), abs(_mean_luma(result) - _mean_luma(reference))


def _mean_luma(path):
    graph = f"movie='{path}',signalstats"
    told = subprocess.run(["ffprobe", "-v", "error", "-f", "lavfi", "-i", graph, "-of", "csv=p=0", "-show_entries",
                           "frame_tags=lavfi.signalstats.YAVG"], check=True, capture_output=True, text=True).stdout
    values = [float(line.strip(",")) for line in told.split()]
    return sum(values) / len(values)


def size_at(likeness, encode, crf):
    """The size that `encode(crf)`, which answers (size, ssim), would need for a likeness: between two CRFs around it."""
    def point(value):
        size, found = encode(value)
        return -math.log10(1 - found), math.log(size)

    wanted = -math.log10(1 - likeness)
    here = point(crf)
    step = -CRF_STEP if here[0] < wanted else CRF_STEP
    for _ in range(MOST_STEPS):
        crf += step
        last, here = here, point(crf)
        if min(last[0], here[0]) <= wanted <= max(last[0], here[0]):
            share = (wanted - last[0]) / (here[0] - last[0])
            return math.exp(last[1] + share * (here[1] - last[1]))
    raise SystemExit(f"no CRF of theirs is as like the source as ours ({likeness:.4f})")


def payloads(path):
    """A digest of every packet's bytes for the first picture and sound track."""
    return subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-i", path, "-map", "0:v:0", "-map", "0:a:0", "-c", "copy",
                           "-f", "streamhash", "-hash", "sha256", "-"], check=True, capture_output=True, text=True).stdout


def packets(path):
    """How many packets a file has."""
    told = subprocess.run(["ffprobe", "-v", "error", "-count_packets", "-of", "csv=p=0", "-show_entries",
                           "stream=nb_read_packets", path], check=True, capture_output=True, text=True).stdout
    return sum(int(word.strip(",")) for word in told.split())
