"use strict";
// The search of an index of set-up sheets: rows whose name has all words of the field.
(function () {
  const search = document.querySelector(".search"), count = document.querySelector(".count");
  const rows = [...document.querySelectorAll("tbody tr")];

  function show() {
    const words = search.value.toLocaleLowerCase().split(/\s+/);
    for (const row of rows) {
      const name = row.querySelector("th").textContent.toLocaleLowerCase();
      row.hidden = !words.every((word) => name.includes(word));
    }
    count.textContent = rows.filter((row) => !row.hidden).length + " / " + rows.length;
  }

  search.addEventListener("input", show);
  show();
})();
