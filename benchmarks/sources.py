# SPDX-License-Identifier: GPL-3.0-or-later
"""The films that are converted: made once, from test pictures and noise with fixed seeds, and kept."""
import subprocess

BT709 = ["-colorspace", "bt709", "-color_primaries", "bt709", "-color_trc", "bt709", "-color_range", "tv"]


class Sources:
    def __init__(self, folder):
        self._folder = folder
        folder.mkdir(parents=True, exist_ok=True)

    def noisy_1080p(self):
        """Ten seconds that no encoder likes, 16 Mb/s."""
        return self._made("noisy_1080p.mp4", *self._pictures("1920x1080", 10, 14), *self._sound(10),
                          "-c:v", "libx264", "-preset", "fast", "-b:v", "16M", "-maxrate", "20M", "-bufsize", "16M",
                          "-threads", "4", *BT709, "-c:a", "aac", "-b:a", "192k")

    def hevc_4k(self):
        """Five seconds as today's phones film them, 40 Mb/s."""
        return self._made("hevc_4k.mp4", *self._pictures("3840x2160", 5, 8), *self._sound(5),
                          "-c:v", "libx265", "-preset", "superfast", "-b:v", "40M", "-tag:v", "hvc1",
                          "-x265-params", "log-level=error:pools=2:frame-threads=2", *BT709, "-c:a", "aac", "-b:a", "192k")

    def pq_4k(self):
        """Three seconds of HDR10 whose white is 600 nits, 40 Mb/s."""
        return self._pq_4k("pq_4k.mp4", 3)

    def clean_pq_4k(self):
        """The same without the noise, of which each encoder leaves out another part."""
        return self._pq_4k("clean_pq_4k.mp4", 0)

    def _pq_4k(self, name, noise):
        tags = "colorprim=bt2020:transfer=smpte2084:colormatrix=bt2020nc:range=limited:hdr10=1:max-cll=1000,400"
        light = "zscale=tin=709:min=709:pin=709:rin=tv:t=smpte2084:m=2020_ncl:p=2020:r=tv:npl=600,format=yuv420p10le"
        return self._made(name, *self._pictures("3840x2160", 3, noise), *self._sound(3),
                          "-vf", light, "-c:v", "libx265", "-preset", "superfast", "-b:v", "40M", "-tag:v", "hvc1",
                          "-x265-params", f"log-level=error:pools=2:frame-threads=2:{tags}", "-colorspace", "bt2020nc",
                          "-color_primaries", "bt2020", "-color_trc", "smpte2084", "-c:a", "aac", "-b:a", "192k")

    def one_second(self):
        return self._made("one_second.mp4", "-t", "1", "-i", self.one_minute(), "-c", "copy")

    def large_mp4(self):
        """Two and a half minutes, 300 MB."""
        return self._made("large.mp4", "-stream_loop", "14", "-i", self.noisy_1080p(), "-c", "copy")

    def large_mkv(self):
        return self._made("large.mkv", "-i", self.large_mp4(), "-c", "copy")

    def one_minute(self):
        return self._made("one_minute.mp4", *self._pictures("640x360", 60, 4), *self._sound(60),
                          "-c:v", "libx264", "-preset", "veryfast", "-threads", "4", *BT709, "-c:a", "aac", "-b:a", "192k")

    def thirty_minutes(self):
        return self._made("thirty_minutes.mp4", "-stream_loop", "29", "-i", self.one_minute(), "-c", "copy")

    @staticmethod
    def _pictures(size, seconds, noise):
        return ["-f", "lavfi", "-i", f"testsrc2=size={size}:rate=30:duration={seconds},noise=alls={noise}:allf=t:all_seed=7,format=yuv420p"]

    @staticmethod
    def _sound(seconds):
        return ["-f", "lavfi", "-i", f"anoisesrc=color=pink:seed=7:amplitude=0.3:duration={seconds}:sample_rate=48000,"
                                     "aformat=channel_layouts=stereo"]

    def _made(self, name, *arguments):
        path = self._folder / name
        if not path.exists():
            print(f"making {name}", flush=True)
            unfinished = path.with_stem(path.stem + ".unfinished")
            subprocess.run(["ffmpeg", "-v", "error", "-nostdin", "-y", *map(str, arguments), unfinished], check=True)
            unfinished.rename(path)
        return path
