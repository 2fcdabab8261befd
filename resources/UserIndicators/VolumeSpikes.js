// VolumeSpikes - the volume, with the bars that trade far more than usual marked.
//
// A bar is a spike when its volume exceeds Factor times the SMA(Period) of the volume.
// Spikes are coloured and labelled with that ratio ("3.1x"); the line shows the
// threshold, and the pane's corner tells how many spikes are in view.

var spikes = []; // true at the bars that are spikes, for draw()

function init()
{
    VolumeSpikes.fullName = "Volume Spikes";
    VolumeSpikes.createParameter("Period", 20);
    VolumeSpikes.createParameter("Factor", 2.5);

    VolumeSpikes.createBuffer("Volume");
    VolumeSpikes.setBufferColor("Volume", "#4682B4");
    VolumeSpikes.setBufferDrawStyle("Volume", DrawStyle.HISTOGRAM);
    VolumeSpikes.createBuffer("Threshold");
    VolumeSpikes.setBufferColor("Threshold", "#C0C0C0");
    VolumeSpikes.setAutoChangeMaxMin("Volume", "Threshold");
}

function start()
{
    var period = Math.max(1, Math.round(VolumeSpikes.parameter("Period")));
    var factor = VolumeSpikes.parameter("Factor");
    VolumeSpikes.label = "VolumeSpikes(" + period + "," + factor + ")";

    var n = Shared.numberOfQuotes();
    var volume = Shared.volume();
    var average = VolumeSpikes.sma(period, volume);

    var threshold = new Array(n);
    var count = 0;
    spikes = new Array(n);
    for (var i = 0; i < n; ++i) {
        threshold[i] = factor * average[i];
        // Before the average is filled it is 0, and every bar would count.
        spikes[i] = i >= period - 1 && average[i] > 0 && volume[i] > threshold[i];
        if (spikes[i]) {
            VolumeSpikes.drawBox(i, 1, "#FF4500", (volume[i] / average[i]).toFixed(1) + "x");
            ++count;
        }
    }
    VolumeSpikes.setBufferData("Volume", volume);
    VolumeSpikes.setBufferData("Threshold", threshold);
    output("VolumeSpikes:", count, "spikes in", n, "bars");
}

function draw()
{
    var first = VolumeSpikes.firstVisiblePosition();
    var last = Math.min(first + Shared.numberOfVisibleQuotes(), spikes.length);
    var inView = 0;
    for (var i = Math.max(first, 0); i < last; ++i) {
        if (spikes[i])
            ++inView;
    }
    // In the top right corner of the plot, left of the value scale.
    var right = Shared.width() - Shared.rightMarginWidth() - 4;
    Painter.setFontSize(8);
    Painter.setPenColor("#FF4500");
    Painter.drawText(right - 120, 2, right, 16, inView + (inView == 1 ? " spike" : " spikes") + " in view");
}
