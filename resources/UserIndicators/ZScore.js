// ZScore - how many standard deviations the close lies away from its moving average.
//
//   ZScore = (close - SMA(Period)) / StdDev(Period)
// StdDev is the series routine stdDev: the spread of the Period closes before the bar
// around the average ending at it. Beyond +2 or -2 the close is stretched far from its
// mean. The first Period bars, and bars without any spread, stay 0.

function init()
{
    ZScore.fullName = "Z-Score";
    ZScore.createParameter("Period", 20);
    ZScore.createBuffer("ZScore");
    ZScore.setBufferColor("ZScore", "#00BFFF");
    ZScore.setBufferDrawStyle("ZScore", DrawStyle.HISTOGRAM);
    ZScore.setAutoChangeMaxMin("ZScore");
    // init() runs again after every change of the parameters: start the levels afresh.
    ZScore.removeAllLevels();
    ZScore.addLevel(2, "#FF4040");
    ZScore.addLevel(0, "#808080");
    ZScore.addLevel(-2, "#40C040");
}

function start()
{
    var period = Math.max(2, Math.round(ZScore.parameter("Period")));
    ZScore.label = "ZScore(" + period + ")";

    var closes = Shared.close();
    var mean = ZScore.sma(period, closes);
    var deviation = ZScore.stdDev(period, closes);

    var n = Shared.numberOfQuotes();
    var score = new Array(n);
    for (var i = 0; i < n; ++i)
        score[i] = i >= period && deviation[i] > 0 ? (closes[i] - mean[i]) / deviation[i] : 0;
    ZScore.setBufferData("ZScore", score);
}
