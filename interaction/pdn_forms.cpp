#include "interaction/pdn_forms.h"

#include "files/variantfile.h"

namespace qv {

PdnChooserForm MakePdnChooser(const PdnCollection& collection, const std::filesystem::path& variantFolder, int source) {
  PdnChooserForm form;
  form.Title = source == 1 ? " Choose Opening" : " Choose Game";
  for (const PdnGameEntry& game : collection.Games) form.Rows.push_back(PdnChooserRow(game.Tags));
  form.OpenAsList = FillOpenAsList(variantFolder);
  form.OpenAsIndex = 0;
  return form;
}

int ChosenGameOf(const PdnChooserForm& form) { return form.SelectedRow + 1; }

std::string OpenAsVariantOf(const PdnChooserForm& form) {
  if (form.OpenAsIndex < 1 || form.OpenAsIndex >= static_cast<int>(form.OpenAsList.size())) return {};
  return form.OpenAsList[static_cast<std::size_t>(form.OpenAsIndex)];
}

DetailsForm FillDetailsForm(const PdnTags& tags) { return {tags.Event, tags.Site, tags.Date, tags.Black, tags.White}; }

void ApplyDetailsForm(const DetailsForm& form, PdnTags& tags) {
  tags.Event = form.Text1;
  tags.Site = form.Text2;
  tags.Date = form.Text3;
  tags.Black = form.Text4;
  tags.White = form.Text5;
}

}  // namespace qv
